#pragma once

#include <array>
#include <string>
#include <string_view>

#include "platform/value_formatting.h"
#include "regional/decimal_digits.h"
#include "regional/locale_facts.h"

namespace dralo::regional {

/// Numbers, currency amounts and percents as a locale writes them.
class NumberForms {
 public:
  explicit NumberForms(const LocaleFacts& facts);

  /// See platform::ValueFormatting::NumberText().
  std::string_view Write(std::string_view decimal, platform::NumberKind kind,
                         const platform::NumberOptions& options, std::string& scratch) const;

  /// Whether a group ends, and a separator follows, at the digit for ten to the power of `power`.
  bool EndsGroup(int power) const {
    return groups_in_pairs_ ? power > 0 && power % 2 == 1 && power >= 3 : power > 0 && power % 3 == 0;
  }

  const std::string& Grouping() const { return grouping_; }
  char DecimalPoint() const { return decimal_point_; }

 private:
  struct Kind {
    std::array<LocaleFacts::Affixes, 2> affixes;
    int digits = 2;
    int power = 0;  ///< Ten to this power times the value is written.
  };

  void PutWhole(const DecimalDigits& number, bool with_groups, std::string& to) const;

  char decimal_point_;
  bool groups_in_pairs_;
  std::string grouping_;
  std::array<Kind, 3> kinds_;
};

}  // namespace dralo::regional
