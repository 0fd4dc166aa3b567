#include "regional/value_pattern.h"

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <variant>

#include "regional/number_pattern.h"
#include "regional/pattern_literal.h"
#include "text/ascii.h"

namespace dralo::regional {
namespace {

using platform::DateTime;
using platform::FormatPattern;
using platform::NumberKind;
using platform::VariantView;

/// Calls body(decimal text) with the number that the value is or spells; booleans are -1 and 0. False when it
/// is no number.
template <class Body>
bool WithNumber(const platform::Formatting& formatting, const VariantView& value, Body&& body) {
  if (const auto* number = std::get_if<std::int64_t>(&value)) return body(std::to_string(*number)), true;
  if (const auto* decimal = std::get_if<platform::DecimalView>(&value)) return body(decimal->text), true;
  if (const auto* flag = std::get_if<bool>(&value)) return body(*flag ? "-1" : "0"), true;
  const auto* text = std::get_if<std::string_view>(&value);
  if (text == nullptr) return false;
  if (*text == "True") return body("-1"), true;
  if (*text == "False") return body("0"), true;
  const auto number = formatting.RecognizeNumber(*text);
  if (number) body(number->text);
  return number.has_value();
}

/// A form of numbers: a `Writer` is given the text of a decimal and the scratch, and returns the result. A
/// value that is no number is written in its standard text.
template <class Writer>
class NumberFormat final : public FormatPattern {
 public:
  NumberFormat(const PatternContext& context, Writer writer)
      : context_(context), writer_(std::move(writer)) {}

  std::string_view Write(const VariantView& value, std::string& scratch) const override {
    std::string_view text;
    const bool is_number = WithNumber(context_.formatting, value,
                                      [&](std::string_view decimal) { text = writer_(decimal, scratch); });
    return is_number ? text : context_.formatting.Text(value, scratch);
  }

 private:
  PatternContext context_;
  Writer writer_;
};

template <class Writer>
std::unique_ptr<FormatPattern> MakeNumberFormat(const PatternContext& context, Writer writer) {
  return std::make_unique<NumberFormat<Writer>>(context, std::move(writer));
}

std::unique_ptr<FormatPattern> PatternFormat(std::string_view pattern, const PatternContext& context) {
  return MakeNumberFormat(context, [pattern = NumberPattern(pattern), &numbers = context.numbers](
                                       std::string_view decimal, std::string& scratch) {
    scratch.clear();
    pattern.Write(decimal, numbers, scratch);
    return std::string_view(scratch);
  });
}

/// Writes one of two words.
std::unique_ptr<FormatPattern> WordFormat(std::string_view other, std::string_view zero,
                                          const PatternContext& context) {
  return MakeNumberFormat(context, [other, zero](std::string_view decimal, std::string&) {
    return DecimalDigits(decimal).IsZero() ? zero : other;
  });
}

std::unique_ptr<FormatPattern> CurrencyFormat(const PatternContext& context) {
  return MakeNumberFormat(context,
                          [&numbers = context.numbers](std::string_view decimal, std::string& scratch) {
                            return numbers.Write(decimal, NumberKind::kCurrency, {}, scratch);
                          });
}

std::unique_ptr<FormatPattern> StandardFormat(const PatternContext& context) {
  return MakeNumberFormat(
      context, [&formatting = context.formatting](std::string_view decimal, std::string& scratch) {
        std::string plain;
        return std::string_view(scratch.assign(formatting.Text(platform::DecimalView{decimal}, plain)));
      });
}

class DateFormat final : public FormatPattern {
 public:
  DateFormat(DatePattern pattern, const PatternContext& context)
      : pattern_(std::move(pattern)), context_(context) {}

  std::string_view Write(const VariantView& value, std::string& scratch) const override {
    std::optional<DateTime> time;
    if (const auto* date = std::get_if<DateTime>(&value)) time = *date;
    if (const auto* text = std::get_if<std::string_view>(&value)) {
      time = context_.formatting.RecognizeDate(*text);
    }
    if (!time || !time->IsValid()) return context_.formatting.Text(value, scratch);
    scratch.clear();
    pattern_.Write(*time, scratch);
    return scratch;
  }

 private:
  DatePattern pattern_;
  PatternContext context_;
};

struct Named {
  std::string_view name;
  std::string_view pattern;
};

constexpr auto kNamedNumbers = std::to_array<Named>({
    {"Fixed", "0.00"},
    {"Standard", "#,##0.00"},
    {"Percent", "0.00%"},
    {"Scientific", "0.00E+00"},
});

/// Name of the pattern, word for a number that is not zero, word for zero.
constexpr auto kNamedWords = std::to_array<std::array<std::string_view, 3>>({
    {"Yes/No", "Yes", "No"},
    {"True/False", "True", "False"},
    {"On/Off", "On", "Off"},
});

constexpr auto kNamedDates = std::to_array<Named>({
    {"General Date", "c"},
    {"Long Date", "dddddd"},
    {"Short Date", "ddddd"},
    {"Long Time", "ttttt"},
    {"Medium Time", "hh:nn AMPM"},
    {"Short Time", "hh:nn"},
});

std::unique_ptr<FormatPattern> NamedNumber(std::string_view name, const PatternContext& context) {
  if (text::EqualAscii(name, "General Number")) return StandardFormat(context);
  if (text::EqualAscii(name, "Currency")) return CurrencyFormat(context);
  for (const Named& named : kNamedNumbers) {
    if (text::EqualAscii(name, named.name)) return PatternFormat(named.pattern, context);
  }
  for (const auto& [word, other, zero] : kNamedWords) {
    if (text::EqualAscii(name, word)) return WordFormat(other, zero, context);
  }
  return nullptr;
}

std::unique_ptr<FormatPattern> NamedDateFormat(std::string_view name, DatePattern pattern,
                                               const PatternContext& context) {
  if (text::EqualAscii(name, "Medium Date")) {
    pattern.AddRuns(context.facts.medium_date);
    return std::make_unique<DateFormat>(std::move(pattern), context);
  }
  for (const Named& named : kNamedDates) {
    if (!text::EqualAscii(name, named.name)) continue;
    pattern.AddPattern(named.pattern);
    return std::make_unique<DateFormat>(std::move(pattern), context);
  }
  return nullptr;
}

/// The pattern without its literals, to see what kind of pattern it is.
std::string Placeholders(std::string_view pattern) {
  std::string placeholders;
  std::string literal;
  while (!pattern.empty()) {
    if (TakeLiteral(pattern, literal)) continue;
    placeholders += pattern[0];
    pattern.remove_prefix(1);
  }
  return placeholders;
}

}  // namespace

std::unique_ptr<FormatPattern> MakeValuePattern(std::string_view pattern, platform::WeekRule rule,
                                                const PatternContext& context) {
  if (pattern.empty()) return nullptr;
  DatePattern date(context.facts, rule);
  if (auto named = NamedNumber(pattern, context)) return named;
  if (auto named = NamedDateFormat(pattern, date, context)) return named;

  const std::string placeholders = Placeholders(pattern);
  if (placeholders.find_first_of("@&") != std::string::npos) return nullptr;
  if (placeholders.find_first_of("0#") != std::string::npos) {
    return PatternFormat(pattern, context);
  }
  if (placeholders.find_first_of("<>!") != std::string::npos) return nullptr;
  if (placeholders.find_first_of("cdwmqyhnstCDWMQYHNST/:") != std::string::npos) {
    date.AddPattern(pattern);
    return std::make_unique<DateFormat>(std::move(date), context);
  }
  return PatternFormat(pattern, context);
}

}  // namespace dralo::regional
