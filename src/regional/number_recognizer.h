#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dralo/variant.h"
#include "regional/locale_facts.h"

namespace dralo::regional {

/// Reads numbers as people of a locale type them.
///
/// Blanks around the number, a sign ("+", "-" or U+2212) directly before it, digits with the locale's
/// grouping and decimal point, an exponent ("1.5e3"). Grouping is optional, but if there is any, the groups
/// must be the locale's: "1,234" and in India "12,34,567", never "12,5", which more likely has a foreign
/// decimal point. Where the locale groups by a blank, any blank will do; for a typographic apostrophe a plain
/// one will. Digits may be missing on one side of the decimal point.
class NumberRecognizer {
 public:
  explicit NumberRecognizer(const LocaleFacts& facts);

  /// The exact number without leading zeros and without trailing ones in the fraction; "0" for every zero.
  /// Nothing when `text` is no number or the result would have more than 1000 digits.
  std::optional<platform::Decimal> Recognize(std::string_view text) const;

 private:
  /// How many bytes the group separator at the start of `text` takes; 0 when there is none.
  std::size_t GroupingSize(std::string_view text) const;

  bool TakeWhole(std::string_view& rest, std::string& digits) const;

  char decimal_point_;
  std::string grouping_;
  bool groups_by_blank_;
  bool groups_in_pairs_;
};

}  // namespace dralo::regional
