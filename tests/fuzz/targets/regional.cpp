#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "dralo/error.h"
#include "fuzz/fuzz_input.h"
#include "platform/value_formatting.h"
#include "regional/locale_formatting.h"
#include "text/decimal.h"
#include "text/iso_date.h"

namespace dralo::fuzz {
namespace {

using platform::ValueFormatting;

constexpr std::array kLocales = {"en-US", "de-DE", "nb-NO", "fr-FR", "hi-IN", "ja-JP",
                                 "ar-EG", "fa-IR", "th-TH", "tr-TR", "de-CH", "sv-SE"};

const ValueFormatting& Formatting(std::size_t locale) {
  static std::array<std::unique_ptr<ValueFormatting>, kLocales.size()> made;
  if (made[locale] == nullptr) made[locale] = regional::MakeFormatting(kLocales[locale]);
  return *made[locale];
}

void TryDate(const ValueFormatting& formatting, std::string_view text) {
  std::optional<platform::DateTime> date = formatting.RecognizeDate(text);
  if (!date) return;
  Require(date->IsValid(), "what is read from a date is one");
  date->nanosecond = 0;  // Texts of dates have no fractions of a second.
  std::string scratch;
  const std::string written(formatting.Text(*date, scratch));
  Require(formatting.RecognizeDate(written) == date, "the text of a date is read as this date");
  for (int form = 0; form <= 4; ++form) {
    static_cast<void>(formatting.DateText(*date, static_cast<platform::NamedDate>(form), scratch));
  }
  std::string iso;
  text::PutDateTime(*date, iso);
  Require(text::ParseIsoDateTime(iso) == date, "the ISO form of a date is read as this date");
}

/// Perhaps refused, as a rule or an interval that is none.
void TryDateParts(const ValueFormatting& formatting, std::string_view date_text, std::string_view interval,
                  std::int64_t number) {
  const auto date = formatting.RecognizeDate(date_text);
  if (!date) return;
  try {
    const platform::WeekRule rule{static_cast<int>(number % 9), static_cast<int>(number % 5)};
    static_cast<void>(formatting.DatePart(interval, *date, rule));
    Require(formatting.DateAdd(interval, number, *date).IsValid(), "what comes of adding is a date");
  } catch (const platform::Error&) {
    return;
  }
}

void TryNumber(const ValueFormatting& formatting, std::string_view text, std::size_t digits) {
  const std::optional<platform::Decimal> number = formatting.RecognizeNumber(text);
  if (!number) return;
  Require(text::IsPlainDecimal(number->text), "what is read from a number is a plain decimal");
  std::string scratch;
  const std::string written(formatting.Text(platform::DecimalView{number->text}, scratch));
  Require(formatting.RecognizeNumber(written) == number, "the text of a number is read as this number");
  for (const auto kind :
       {platform::NumberKind::kNumber, platform::NumberKind::kCurrency, platform::NumberKind::kPercent}) {
    platform::NumberOptions options;
    options.digits = static_cast<int>(digits) - 1;
    static_cast<void>(formatting.NumberText({number->text}, kind, options, scratch));
  }
  const platform::Decimal rounded = formatting.Rounded({number->text}, static_cast<int>(digits));
  Require(text::IsPlainDecimal(rounded.text), "a rounded number is a plain decimal");
}

}  // namespace

void Try(std::string_view input) {
  Parts parts(input);
  const ValueFormatting& formatting = Formatting(parts.Choose(kLocales.size()));
  const std::size_t digits = parts.Choose(platform::NumberOptions::kMaxDigits + 2);
  const std::string_view text = parts.Next();
  TryDate(formatting, text);
  TryNumber(formatting, text, digits);
  const std::string_view interval = parts.Next();
  const auto number = text::ParseNumber<std::int64_t>(parts.Next());
  TryDateParts(formatting, text, interval, number.value_or(1));
}

}  // namespace dralo::fuzz
