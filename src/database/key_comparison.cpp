#include "database/key_comparison.h"

#include <array>
#include <chrono>
#include <optional>
#include <vector>

#include "database/date_text.h"
#include "database/in_quotes.h"
#include "text/ascii.h"
#include "text/decimal.h"
#include "text/iso_date.h"

namespace dralo::database {

namespace {

using platform::DateTime;

/// The condition made of its parts, the name and the number that the text spells; "" when the text is no
/// number.
std::string WithNumber(std::string_view before_name, std::string_view name, std::string_view before_number,
                       std::string_view text, std::string_view behind) {
  const auto number = text::ParseDecimal(text);
  if (!number) return {};
  return std::string(before_name).append(name).append(before_number).append(*number).append(behind);
}

std::string Quoted(std::string_view text) { return InQuotes(text, '\'', '\''); }

std::string In(std::string_view name, const std::vector<std::string>& values) {
  std::string text(name);
  std::string_view separator = " IN (";
  for (const std::string& value : values) {
    text.append(separator).append(value);
    separator = ",";
  }
  return text += ')';
}

/// The usual spellings of the same time of day.
std::vector<std::string> TimeTexts(const DateTime& time) {
  constexpr std::size_t kSeconds = std::string_view("HH:MM:SS").size();
  constexpr std::size_t kMinutes = std::string_view("HH:MM").size();
  const std::string exact = TimeText(time);
  std::vector<std::string> texts = {exact};
  if (time.nanosecond == 0) {
    texts.push_back(exact + ".000");
    if (time.second == 0) texts.push_back(exact.substr(0, kMinutes));
    return texts;
  }
  const std::size_t digits = exact.size() - kSeconds - 1;
  for (const std::size_t kept : std::array<std::size_t, 3>{3, 6, 9}) {
    if (kept > digits) texts.push_back(exact + std::string(kept - digits, '0'));
  }
  return texts;
}

std::int64_t UnixSeconds(const DateTime& time) {
  using std::chrono::day;
  using std::chrono::month;
  using std::chrono::year;
  const std::chrono::sys_days date = year{time.year} / month{time.month} / day{time.day};
  const auto moment = std::chrono::sys_seconds(date) + std::chrono::hours(time.hour) +
                      std::chrono::minutes(time.minute) + std::chrono::seconds(time.second);
  return moment.time_since_epoch().count();
}

}  // namespace

std::string SameBoolean(std::string_view name, std::string_view text) {
  if (text != "0" && text != "1") return {};
  return std::string(name).append("='").append(text).append("'");
}

std::string SameMoney(std::string_view name, std::string_view text) {
  return WithNumber("", name, "=CAST(", text, " AS money)");
}

std::string SameUnlimited(std::string_view name, std::string_view text) {
  const std::string_view sign = text.starts_with('-') ? "-" : "";
  const std::string_view word = text.substr(sign.size());
  const bool is_infinite = text::EqualAscii(word, "Infinity") || text::EqualAscii(word, "inf");
  if (!is_infinite && !text::EqualAscii(word, "NaN")) return {};
  return std::string(name).append("='").append(sign).append(is_infinite ? "Infinity'" : "NaN'");
}

std::string SameReal(std::string_view name, std::string_view text) {
  if (std::string unlimited = SameUnlimited(name, text); !unlimited.empty()) return unlimited;
  return WithNumber("", name, "=CAST(", text, " AS real)");
}

std::string SamePrintedNumber(std::string_view name, std::string_view text) {
  return WithNumber("CAST(", name, " AS CHAR)+0=", text, "");
}

std::string SameMoment(std::string_view name, std::string_view text) {
  const auto moment = text::ParseIsoDateTime(text);
  if (!moment) return {};
  const std::string day = DateText(*moment);
  std::vector<std::string> values;
  if (moment->IsMidnight() && moment->nanosecond == 0) values.push_back(Quoted(day));
  for (const std::string& time : TimeTexts(*moment)) {
    for (const char* separator : {" ", "T"}) {
      values.push_back(Quoted(std::string(day).append(separator).append(time)));
    }
    values.push_back(Quoted(std::string(day).append("T").append(time).append("Z")));
  }
  if (moment->nanosecond == 0) values.push_back(std::to_string(UnixSeconds(*moment)));
  return In(name, values);
}

std::string SameTimeOfDay(std::string_view name, std::string_view text) {
  const auto time = text::ParseTimeOfDay(text);
  if (!time) return {};
  std::vector<std::string> values;
  for (const std::string& spelled : TimeTexts(*time)) values.push_back(Quoted(spelled));
  return In(name, values);
}

std::string SameOfAnyKind(std::string_view name, std::string_view text) {
  const auto number = text::ParseDecimal(text);
  if (!number) return std::string(name).append("=").append(Quoted(text));
  return In(name, {*number, Quoted(text)});
}

}  // namespace dralo::database
