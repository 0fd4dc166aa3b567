#include "regional/locale_formatting.h"

#include <algorithm>
#include <utility>

#include "dralo/error.h"
#include "regional/calendar.h"
#include "regional/date_pattern.h"
#include "regional/date_recognizer.h"
#include "regional/locale_facts.h"
#include "regional/locale_name.h"
#include "regional/number_forms.h"
#include "regional/number_recognizer.h"
#include "regional/number_writer.h"
#include "regional/scratch.h"
#include "regional/value_pattern.h"

namespace dralo::regional {
namespace {

using platform::DateTime;
using platform::VariantView;

/// The locale's week as a platform::WeekRule.
platform::WeekRule WeekRuleOf(const LocaleFacts& facts) {
  const int days = facts.days_in_first_week;
  return {facts.first_day_of_week, days <= 1 ? 1 : days < 7 ? 2 : 3};
}

class LocaleFormatting final : public platform::ValueFormatting {
 public:
  explicit LocaleFormatting(LocaleFacts facts)
      : facts_(std::move(facts)),
        numbers_(facts_.decimal_point),
        number_forms_(facts_),
        long_date_(facts_, {}),
        short_time_(facts_, {}),
        date_recognizer_(facts_),
        number_recognizer_(facts_) {
    long_date_.AddPattern("dddddd");
    short_time_.AddPattern("hh:nn");
  }

  std::string_view Text(const VariantView& value, std::string& scratch) const override;

  std::optional<DateTime> RecognizeDate(std::string_view text) const override {
    return date_recognizer_.Recognize(text);
  }

  std::optional<platform::Decimal> RecognizeNumber(std::string_view text) const override {
    return number_recognizer_.Recognize(text);
  }

  std::string_view NumberText(platform::DecimalView number, platform::NumberKind kind,
                              const platform::NumberOptions& options, std::string& scratch) const override {
    return number_forms_.Write(number.text, kind, options, scratch);
  }

  platform::Decimal Rounded(platform::DecimalView number, int digits) const override;

  std::string_view DateText(const DateTime& time, platform::NamedDate form,
                            std::string& scratch) const override;

  DateTime DateAdd(std::string_view interval, std::int64_t number, const DateTime& time) const override {
    return Add(ReadInterval(interval), number, time);
  }

  int DatePart(std::string_view interval, const DateTime& time, platform::WeekRule rule) const override {
    return Part(ReadInterval(interval), time, Checked(rule));
  }

  std::unique_ptr<platform::FormatPattern> MakePattern(std::string_view pattern,
                                                       platform::WeekRule rule) const override {
    return MakeValuePattern(pattern, Checked(rule), {*this, number_forms_, facts_});
  }

 private:
  std::string_view BooleanText(bool flag) const {
    return flag ? facts_.boolean_words.true_word : facts_.boolean_words.false_word;
  }
  platform::WeekRule Checked(platform::WeekRule rule) const;

  /// Apart, because the other values then need nothing kept over a call.
  [[gnu::noinline]] std::string_view DateTimeText(const DateTime& time, std::string& scratch) const;

  LocaleFacts facts_;
  NumberWriter numbers_;
  NumberForms number_forms_;
  DatePattern long_date_;
  DatePattern short_time_;
  DateRecognizer date_recognizer_;
  NumberRecognizer number_recognizer_;
};

std::string_view LocaleFormatting::Text(const VariantView& value, std::string& scratch) const {
  struct Writer {
    const LocaleFormatting& formatting;
    std::string& scratch;

    std::string_view operator()(platform::Null) const { return {}; }
    std::string_view operator()(bool flag) const { return formatting.BooleanText(flag); }
    std::string_view operator()(std::int64_t number) const {
      return formatting.numbers_.Write(number, scratch);
    }
    std::string_view operator()(double number) const { return formatting.numbers_.Write(number, scratch); }
    std::string_view operator()(platform::DecimalView number) const {
      return formatting.numbers_.Write(number, scratch);
    }
    std::string_view operator()(const DateTime& time) const { return formatting.DateTimeText(time, scratch); }
    std::string_view operator()(std::string_view text) const { return text; }
    std::string_view operator()(platform::BytesView) const { return {}; }
  };
  return std::visit(Writer{*this, scratch}, value);
}

std::string_view LocaleFormatting::DateTimeText(const DateTime& time, std::string& scratch) const {
  char* start = Room(scratch, MaxGeneralSize(facts_));
  return {start, static_cast<std::size_t>(WriteGeneral(facts_, time, start) - start)};
}

platform::Decimal LocaleFormatting::Rounded(platform::DecimalView number, int digits) const {
  DecimalDigits rounded(number.text);
  rounded.Round(digits, Rounding::kHalfToEven);
  platform::Decimal result;
  if (rounded.IsNegative() && !rounded.IsZero()) result.text += '-';
  for (int power = std::max(rounded.WholeDigits(), 1) - 1; power >= -rounded.Decimals(); --power) {
    if (power == -1) result.text += '.';
    result.text += rounded.DigitAt(power);
  }
  return result;
}

std::string_view LocaleFormatting::DateText(const DateTime& time, platform::NamedDate form,
                                            std::string& scratch) const {
  using platform::NamedDate;
  if (form == NamedDate::kGeneral) return DateTimeText(time, scratch);
  scratch.clear();
  switch (form) {
    case NamedDate::kLongDate:
      long_date_.Write(time, scratch);
      break;
    case NamedDate::kLongTime:
      AppendTime(facts_.long_time, time, scratch);
      break;
    case NamedDate::kShortTime:
      short_time_.Write(time, scratch);
      break;
    default:
      AppendTime(facts_.short_date, time, scratch);
  }
  return scratch;
}

/// The rule with the locale's number for every 0. Throws platform::Error when it is not valid.
platform::WeekRule LocaleFormatting::Checked(platform::WeekRule rule) const {
  if (rule.first_day < 0 || rule.first_day > 7) throw platform::Error("The first day of the week is 0 to 7");
  if (rule.first_week < 0 || rule.first_week > 3)
    throw platform::Error("The first week of the year is 0 to 3");
  if (rule.first_day == 0) rule.first_day = WeekRuleOf(facts_).first_day;
  if (rule.first_week == 0) rule.first_week = WeekRuleOf(facts_).first_week;
  return rule;
}

}  // namespace

std::unique_ptr<platform::ValueFormatting> MakeFormatting(std::string_view locale) {
  return std::make_unique<LocaleFormatting>(ReadLocaleFacts(ChooseLocale(locale)));
}

}  // namespace dralo::regional
