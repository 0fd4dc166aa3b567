#include "editing/edit_rules.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <utility>
#include <variant>

#include "dralo/error.h"
#include "text/blanks.h"
#include "text/characters.h"
#include "text/decimal.h"
#include "text/iso_date.h"
#include "text/list.h"

namespace dralo::editing {
namespace {

using platform::DateTime;

constexpr auto kRuleNames = std::to_array<std::string_view>(
    {"required", "email", "url", "date",
     "min=", "max=", "minlength=", "maxlength=", "pattern=", "date>=", "date<="});

bool BeginsRule(std::string_view item) {
  item = text::TrimBlanks(item);
  return std::ranges::any_of(kRuleNames, [&](std::string_view name) {
    const bool has_value = name.ends_with('=');
    return has_value ? item.starts_with(name) : item == name;
  });
}

/// Splits the list; items that follow a pattern and are no rules belong to the pattern.
std::vector<std::string> SplitRules(std::string_view text) {
  std::vector<std::string> rules;
  for (const std::string& item : text::Split(text)) {
    const bool continues = !rules.empty() && rules.back().starts_with("pattern=") && !BeginsRule(item);
    if (continues) {
      rules.back().append(",").append(item);
    } else {
      rules.emplace_back(text::TrimBlanks(item));
    }
  }
  return rules;
}

platform::Error WrongRule(std::string_view rule) {
  return platform::Error("EditRules has no rule \"" + std::string(rule) + "\"");
}

std::size_t LengthOfRule(std::string_view rule, std::string_view length) {
  const auto number = text::ParseNumber<std::uint32_t>(length);
  if (!number) throw WrongRule(rule);
  return *number;
}

std::string NumberOfRule(std::string_view rule, std::string_view number) {
  auto decimal = text::ParseDecimal(number);
  if (!decimal) throw WrongRule(rule);
  return *std::move(decimal);
}

/// "today", "today+7", "today-7" or "2026-12-31".
DayLimit DayOfRule(std::string_view rule, std::string_view text) {
  constexpr std::string_view kToday = "today";
  if (!text.starts_with(kToday)) {
    const auto day = text::ParseIsoDateTime(text);
    if (!day) throw WrongRule(rule);
    return {.day = day};
  }
  std::string_view days = text.substr(kToday.size());
  if (days.empty()) return {};
  const auto number = text::ParseNumber<int>(days.substr(1));
  constexpr int kMostDays = 1'000'000;
  if ((days[0] != '+' && days[0] != '-') || !number || *number < 0 || *number > kMostDays)
    throw WrongRule(rule);
  return {.days_from_today = days[0] == '+' ? *number : -*number};
}

void ReadRule(std::string_view rule, EditRules& rules) {
  const auto value_of = [&](std::string_view name) -> std::optional<std::string_view> {
    return rule.starts_with(name) ? std::optional(rule.substr(name.size())) : std::nullopt;
  };
  if (rule == "required") {
    rules.is_required = true;
  } else if (rule == "email") {
    rules.is_email = true;
  } else if (rule == "url") {
    rules.is_url = true;
  } else if (const auto least = value_of("min=")) {
    rules.min = NumberOfRule(rule, *least);
  } else if (const auto most = value_of("max=")) {
    rules.max = NumberOfRule(rule, *most);
  } else if (const auto shortest = value_of("minlength=")) {
    rules.min_length = LengthOfRule(rule, *shortest);
  } else if (const auto longest = value_of("maxlength=")) {
    rules.max_length = LengthOfRule(rule, *longest);
  } else if (const auto pattern = value_of("pattern=")) {
    rules.pattern = *pattern;
  } else if (rule.starts_with("date")) {
    rules.is_day = true;
    if (const auto first = value_of("date>=")) {
      rules.first_day = DayOfRule(rule, *first);
    } else if (const auto last = value_of("date<=")) {
      rules.last_day = DayOfRule(rule, *last);
    } else if (rule != "date") {
      throw WrongRule(rule);
    }
  } else {
    throw WrongRule(rule);
  }
}

/// Negative, 0 or positive when the number is below, equal to or above the limit.
int CompareNumbers(std::string_view number, std::string_view limit) {
  const double left = text::ParseNumber<double>(number).value_or(0);
  const double right = text::ParseNumber<double>(limit).value_or(0);
  return left < right ? -1 : left > right ? 1 : 0;
}

/// The number that a value is; nothing when it is none.
std::optional<std::string> NumberOf(const platform::VariantView& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&value)) return text::DecimalText(*number);
  if (const auto* decimal = std::get_if<platform::DecimalView>(&value)) return std::string(decimal->text);
  if (const auto* text = std::get_if<std::string_view>(&value)) return text::ParseDecimal(*text);
  return std::nullopt;
}

DateTime DayOf(const DateTime& time) { return {.year = time.year, .month = time.month, .day = time.day}; }

/// Checks one value against the rules of its field.
class RuleCheck {
 public:
  RuleCheck(const state::Render& render, const EditRules& rules, std::string_view text)
      : render_(render), rules_(rules), text_(text) {}

  std::string Run(const platform::VariantView& value, const DateTime& today) {
    if (text_.empty()) return rules_.is_required ? Text(settings::kRequired) : std::string();
    std::string broken = BrokenLength();
    if (broken.empty()) broken = BrokenNumber(value);
    if (broken.empty()) broken = BrokenForm();
    if (broken.empty()) broken = BrokenDay(value, today);
    return broken;
  }

 private:
  std::string Text(settings::RefusalSlot slot, std::string_view limit = {}) const {
    std::string text = render_.settings.language_tables->refusals[slot];
    constexpr std::string_view kPlace = "{}";
    const std::size_t place = text.find(kPlace);
    return place == text.npos ? text : text.replace(place, kPlace.size(), limit);
  }

  std::string BrokenLength() const {
    const std::size_t length = text::CountCharacters(text_);
    if (rules_.min_length && length < *rules_.min_length)
      return Text(settings::kTooShort, std::to_string(*rules_.min_length));
    if (rules_.max_length && length > *rules_.max_length)
      return Text(settings::kTooLong, std::to_string(*rules_.max_length));
    return {};
  }

  std::string BrokenNumber(const platform::VariantView& value) const {
    if (rules_.min.empty() && rules_.max.empty()) return {};
    const auto number = NumberOf(value);
    if (!number) return Text(settings::kNoNumber);
    if (!rules_.min.empty() && CompareNumbers(*number, rules_.min) < 0)
      return Text(settings::kBelowLimit, rules_.min);
    if (!rules_.max.empty() && CompareNumbers(*number, rules_.max) > 0)
      return Text(settings::kAboveLimit, rules_.max);
    return {};
  }

  std::string BrokenForm() const {
    // The same check that browsers make for inputs of these types.
    constexpr std::string_view kEmail =
        "[a-zA-Z0-9.!#$%&'*+/=?^_`{|}~-]+@[a-zA-Z0-9](?:[a-zA-Z0-9-]{0,61}[a-zA-Z0-9])?"
        "(?:\\.[a-zA-Z0-9](?:[a-zA-Z0-9-]{0,61}[a-zA-Z0-9])?)*";
    constexpr std::string_view kUrl = "[hH][tT][tT][pP][sS]?://[^\\s/?#]+\\S*";
    if (rules_.is_email && !Matches(kEmail)) return Text(settings::kNoEmail);
    if (rules_.is_url && !Matches(kUrl)) return Text(settings::kNoAddress);
    if (!rules_.pattern.empty() && !Matches(rules_.pattern)) return Text(settings::kOtherForm);
    return {};
  }

  bool Matches(std::string_view pattern) const {
    const auto expression = render_.environment.CreateRegExp();
    expression->Compile(std::string("\\A(?:").append(pattern) + ")\\z", {});
    // The text is not empty, so nothing is left of it only when all of it was matched.
    return expression->Replace(text_, "").empty();
  }

  std::string BrokenDay(const platform::VariantView& value, const DateTime& today) const {
    if (!rules_.is_day) return {};
    const auto* stored = std::get_if<DateTime>(&value);
    const auto time = stored != nullptr ? *stored : render_.Regional().RecognizeDate(text_);
    if (!time) return Text(settings::kNoDate);
    const DateTime day = DayOf(*time);
    if (rules_.first_day && day < rules_.first_day->DayAt(today))
      return Text(settings::kTooEarly, Shown(rules_.first_day->DayAt(today)));
    if (rules_.last_day && day > rules_.last_day->DayAt(today))
      return Text(settings::kTooLate, Shown(rules_.last_day->DayAt(today)));
    return {};
  }

  std::string Shown(const DateTime& day) const {
    std::string scratch;
    return std::string(render_.Regional().Text(day, scratch));
  }

  const state::Render& render_;
  const EditRules& rules_;
  std::string_view text_;
};

}  // namespace

DateTime DayLimit::DayAt(const DateTime& today) const {
  if (day) return DayOf(*day);
  const std::chrono::year_month_day start{std::chrono::year{today.year}, std::chrono::month{today.month},
                                          std::chrono::day{today.day}};
  const std::chrono::year_month_day moved{std::chrono::sys_days{start} + std::chrono::days{days_from_today}};
  return {.year = static_cast<std::int16_t>(static_cast<int>(moved.year())),
          .month = static_cast<std::uint8_t>(static_cast<unsigned>(moved.month())),
          .day = static_cast<std::uint8_t>(static_cast<unsigned>(moved.day()))};
}

EditRules ReadEditRules(std::string_view text) {
  EditRules rules;
  if (text::IsBlank(text)) return rules;
  for (const std::string& rule : SplitRules(text)) ReadRule(rule, rules);
  return rules;
}

EditRules RulesOfColumn(const settings::Settings& settings, int column) {
  const auto found = settings.EditRules.find(static_cast<std::int16_t>(column));
  return found == settings.EditRules.end() ? EditRules{} : ReadEditRules(found->second);
}

DateTime Today() {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  constexpr int kFirstYear = 1900;
  return {.year = static_cast<std::int16_t>(local.tm_year + kFirstYear),
          .month = static_cast<std::uint8_t>(local.tm_mon + 1),
          .day = static_cast<std::uint8_t>(local.tm_mday)};
}

std::string BrokenRule(const state::Render& render, const EditRules& rules, std::string_view text,
                       const platform::VariantView& value, const DateTime& today) {
  return RuleCheck(render, rules, text).Run(value, today);
}

}  // namespace dralo::editing
