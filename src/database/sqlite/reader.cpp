#include "database/sqlite/reader.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string_view>

#include "text/decimal.h"
#include "text/iso_date.h"

namespace dralo::database::sqlite {

namespace {

using platform::DateTime;
using platform::TypeCode;
using platform::VariantView;

std::string_view ReadText(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text ? text : "", text ? static_cast<std::size_t>(sqlite3_value_bytes(value)) : 0};
}

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

VariantView ReadDate(sqlite3_value* value) {
  const VariantView stored = ReadStored(value);
  std::optional<DateTime> time;
  if (const auto* text = std::get_if<std::string_view>(&stored)) time = text::ParseIsoDateTime(*text);
  if (const auto* seconds = std::get_if<std::int64_t>(&stored)) time = FromUnixSeconds(*seconds);
  return time ? *time : stored;
}

VariantView ReadTime(sqlite3_value* value) {
  const VariantView stored = ReadStored(value);
  const auto* text = std::get_if<std::string_view>(&stored);
  const auto time = text ? text::ParseTimeOfDay(*text) : std::nullopt;
  return time ? *time : stored;
}

VariantView ReadDecimal(sqlite3_value* value) {
  const VariantView stored = ReadStored(value);
  const auto* text = std::get_if<std::string_view>(&stored);
  return text && text::IsPlainDecimal(*text) ? platform::DecimalView{*text} : stored;
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

VariantView ReadStored(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_value_int64(value)};
    case SQLITE_FLOAT:
      return sqlite3_value_double(value);
    case SQLITE_TEXT:
      return ReadText(value);
    case SQLITE_BLOB: {
      const auto* bytes = static_cast<const std::uint8_t*>(sqlite3_value_blob(value));
      return platform::BytesView{bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
    }
    default:
      return platform::Null{};
  }
}

VariantView Read(Reader reader, sqlite3_value* value) {
  switch (reader) {
    case Reader::kStored:
      break;
    case Reader::kText: {
      const int type = sqlite3_value_type(value);
      if (type != SQLITE_NULL && type != SQLITE_BLOB) return ReadText(value);
      break;
    }
    case Reader::kBoolean:
      if (sqlite3_value_type(value) == SQLITE_INTEGER) return sqlite3_value_int64(value) != 0;
      break;
    case Reader::kDecimal:
      return ReadDecimal(value);
    case Reader::kDate:
      return ReadDate(value);
    case Reader::kTime:
      return ReadTime(value);
  }
  return ReadStored(value);
}

}  // namespace dralo::database::sqlite
