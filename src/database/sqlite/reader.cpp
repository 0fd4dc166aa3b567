#include "database/sqlite/reader.h"

#include <chrono>
#include <cstdint>
#include <optional>

#include "database/text_reading.h"

namespace dralo::database::sqlite {

namespace {

using platform::DateTime;
using platform::TypeCode;
using platform::VariantView;

/// Nothing for seconds outside the years 1 to 9999.
std::optional<DateTime> FromUnixSeconds(std::int64_t seconds) {
  using std::chrono::sys_days;
  using std::chrono::year;
  constexpr auto first = std::chrono::sys_seconds(sys_days(year{1} / 1 / 1)).time_since_epoch().count();
  constexpr auto last =
      std::chrono::sys_seconds(sys_days(year{10000} / 1 / 1)).time_since_epoch().count() - 1;
  if (seconds < first || seconds > last) return std::nullopt;
  const std::chrono::sys_seconds moment{std::chrono::seconds{seconds}};
  const auto day = std::chrono::floor<std::chrono::days>(moment);
  const std::chrono::year_month_day date{day};
  const std::chrono::hh_mm_ss time{moment - day};
  return DateTime{static_cast<std::int16_t>(static_cast<int>(date.year())),
                  static_cast<std::uint8_t>(static_cast<unsigned>(date.month())),
                  static_cast<std::uint8_t>(static_cast<unsigned>(date.day())),
                  static_cast<std::uint8_t>(time.hours().count()),
                  static_cast<std::uint8_t>(time.minutes().count()),
                  static_cast<std::uint8_t>(time.seconds().count())};
}

}  // namespace

Reader ReaderOf(TypeCode type) {
  switch (type) {
    case TypeCode::kBoolean:
      return Reader::kBoolean;
    case TypeCode::kNumeric:
    case TypeCode::kCurrency:
      return Reader::kDecimal;
    case TypeCode::kDate:
      return Reader::kDate;
    case TypeCode::kDbTime:
      return Reader::kTime;
    case TypeCode::kVarWideChar:
    case TypeCode::kLongVarWideChar:
    case TypeCode::kGuid:
      return Reader::kText;
    default:
      return Reader::kStored;
  }
}

VariantView ReadFromText(Reader reader, std::string_view text) {
  switch (reader) {
    case Reader::kDecimal:
      return ReadDecimal(text);
    case Reader::kDate:
      return ReadDate(text);
    case Reader::kTime:
      return ReadTimeOfDay(text);
    default:
      return text;
  }
}

VariantView ReadFromInteger(Reader reader, sqlite3_value* value) {
  if (reader == Reader::kText) return ReadText(value);
  const std::int64_t number = sqlite3_value_int64(value);
  if (reader == Reader::kBoolean) return number != 0;
  const auto time = reader == Reader::kDate ? FromUnixSeconds(number) : std::nullopt;
  return time ? VariantView(*time) : number;
}

VariantView ReadBytes(sqlite3_value* value) {
  const auto* bytes = static_cast<const std::uint8_t*>(sqlite3_value_blob(value));
  return platform::BytesView{bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

}  // namespace dralo::database::sqlite
