#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "dralo/date_time.h"
#include "dralo/variant.h"
#include "platform/formatting.h"

namespace dralo::platform {

/// A choice that may be left to the locale; pages write these numbers.
enum class Tristate : int { kDefault = -2, kTrue = -1, kFalse = 0 };

enum class NumberKind { kNumber, kCurrency, kPercent };

struct NumberOptions {
  static constexpr int kDefaultDigits = -1;
  static constexpr int kMaxDigits = 255;

  int digits = kDefaultDigits;                  ///< After the decimal point.
  Tristate leading_digit = Tristate::kDefault;  ///< "0.5" instead of ".5".
  Tristate parentheses = Tristate::kDefault;    ///< "(5)" instead of "-5".
  Tristate groups = Tristate::kDefault;         ///< "1,000" instead of "1000".
};

/// The named forms of date-times; pages write these numbers.
enum class NamedDate : int { kGeneral = 0, kLongDate = 1, kShortDate = 2, kLongTime = 3, kShortTime = 4 };

/// How weeks are counted; pages write these numbers.
struct WeekRule {
  /// 1 Sunday to 7 Saturday; 0: as in the locale.
  int first_day = 1;

  /// 1 the week of 1 January, 2 the first with four days, 3 the first full one; 0: as in the locale.
  int first_week = 1;
};

/// A pattern that is read once and writes many values.
class FormatPattern {
 public:
  virtual ~FormatPattern() = default;

  /// `value`, a whole or decimal number, a boolean, a date-time or a text, in the pattern. A pattern for
  /// numbers or dates takes a text as the number or date that it spells. A value that does not fit the
  /// pattern is written in its standard text. Booleans, and the texts "True" and "False", are the numbers -1
  /// and 0. The result stands in `value`, in `scratch`, whose content is replaced, or is a constant.
  virtual std::string_view Write(const VariantView& value, std::string& scratch) const = 0;
};

/// Forms of values that a page chooses. A class of its own because the database layer needs only Formatting.
/// Decimals are exact: they are never converted to binary numbers. Results stand in `scratch`, whose content
/// is replaced.
class ValueFormatting : public Formatting {
 public:
  /// The number rounded half away from zero. A negative number that is rounded to zero has no sign. kPercent
  /// writes 0.5 as 50%. Throws Error when `number` has more than 1200 digits.
  virtual std::string_view NumberText(DecimalView number, NumberKind kind, const NumberOptions& options,
                                      std::string& scratch) const = 0;

  /// `number` with at most `digits` (0 or more) digits after the decimal point, rounded half to even.
  virtual Decimal Rounded(DecimalView number, int digits) const = 0;

  virtual std::string_view DateText(const DateTime& time, NamedDate form, std::string& scratch) const = 0;

  /// `time` and `number` times the interval: "yyyy" years, "q" quarters, "m" months, "y", "d" and "w" days,
  /// "ww" weeks, "h" hours, "n" minutes, "s" seconds, in any letter case. A day that the month does not have
  /// becomes its last. Throws Error for other intervals and beyond the years 1 to 9999.
  virtual DateTime DateAdd(std::string_view interval, std::int64_t number, const DateTime& time) const = 0;

  /// The part of `time` that the interval names, as in DateAdd(), but "y" is the day of the year, "w" that of
  /// the week, and "ww" the week. Throws Error for other intervals and when `rule` is not valid.
  virtual int DatePart(std::string_view interval, const DateTime& time, WeekRule rule) const = 0;

  /// Makes the pattern for numbers or date-times that `pattern` spells or names; nullptr when it is a pattern
  /// for texts, as the empty one is. May be used as long as this object. Throws Error when `rule` is not
  /// valid.
  virtual std::unique_ptr<FormatPattern> MakePattern(std::string_view pattern, WeekRule rule) const = 0;
};

}  // namespace dralo::platform
