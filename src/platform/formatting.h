#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dralo/date_time.h"
#include "dralo/variant.h"

namespace dralo::platform {

/// Turns values into text, and typed text into values, by the regional settings of the server. Objects are
/// immutable and may be used by several threads.
class Formatting {
 public:
  virtual ~Formatting() = default;

  /// The standard text of `value`: numbers in the locale's plain form, without grouping and without trailing
  /// zeros after the decimal point; booleans as the locale's words for true and false; date-times as short
  /// date, blank, long time, without the time at midnight and without the date on the zero date; text as it
  /// is; Null and bytes as "". The result stands in `value` itself, in `scratch` (whose content is replaced),
  /// or is a constant: valid until either changes.
  virtual std::string_view Text(const VariantView& value, std::string& scratch) const = 0;

  /// The date-time that `text` spells in the locale's or in ISO form, as a date, a time or both; nothing when
  /// it is none.
  virtual std::optional<DateTime> RecognizeDate(std::string_view text) const = 0;

  /// The number that `text` spells in the locale's form: blanks around it, a sign, the locale's grouping and
  /// decimal point, an exponent. Exact. Nothing when it is no number, as "&H10" and "0x10" are none.
  virtual std::optional<Decimal> RecognizeNumber(std::string_view text) const = 0;
};

}  // namespace dralo::platform
