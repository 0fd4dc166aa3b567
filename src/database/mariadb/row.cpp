#include "database/mariadb/row.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <utility>

#include "dralo/error.h"
#include "text/decimal.h"

namespace dralo::database::mariadb {

namespace {

using platform::DateTime;
using platform::VariantView;

/// Longer texts need a second call, once.
constexpr std::size_t kFirstRoom = 256;

/// A date that no calendar has, such as "no date", counts as absent.
VariantView ValidOrNull(const DateTime& time) { return time.IsValid() ? VariantView(time) : VariantView{}; }

VariantView ReadDateTime(const MYSQL_TIME& time) {
  return ValidOrNull({static_cast<std::int16_t>(time.year), static_cast<std::uint8_t>(time.month),
                      static_cast<std::uint8_t>(time.day), static_cast<std::uint8_t>(time.hour),
                      static_cast<std::uint8_t>(time.minute), static_cast<std::uint8_t>(time.second),
                      static_cast<std::uint32_t>(time.second_part * 1000)});
}

// Few columns have these types; apart, they cost the values of the others nothing.

[[gnu::noinline]] VariantView ReadSingle(std::string_view text) {
  const auto number = text::ParseNumber<double>(text);
  return number ? VariantView(*number) : text;
}

[[gnu::noinline]] VariantView ReadUnsigned(std::int64_t bits, std::string& scratch) {
  scratch = std::to_string(static_cast<std::uint64_t>(bits));
  return platform::DecimalView{scratch};
}

}  // namespace

Row::Row(const std::vector<Reader>& readers)
    : cells_(readers.size()), binds_(readers.size()), bytes_(readers.size()) {
  for (std::size_t i = 0; i < readers.size(); ++i) {
    cells_[i].reader = readers[i];
    if (cells_[i].Fixed().empty()) cells_[i].bytes.resize(kFirstRoom);
    binds_[i] = BindOf(cells_[i]);
  }
}

MYSQL_BIND Row::BindOf(Cell& cell) {
  MYSQL_BIND bind{};
  bind.is_null = &cell.is_null;
  bind.error = &cell.is_cut;
  bind.length = &cell.size;
  const std::span<char> fixed = cell.Fixed();
  bind.buffer = fixed.empty() ? cell.bytes.data() : fixed.data();
  bind.buffer_length = static_cast<unsigned long>(fixed.empty() ? cell.bytes.size() : fixed.size());
  switch (cell.reader.reading) {
    case Reading::kInteger:
    case Reading::kUnsigned:
      bind.buffer_type = MYSQL_TYPE_LONGLONG;
      bind.is_unsigned = static_cast<my_bool>(cell.reader.reading == Reading::kUnsigned);
      break;
    case Reading::kDouble:
      bind.buffer_type = MYSQL_TYPE_DOUBLE;
      break;
    case Reading::kDateTime:
      bind.buffer_type = MYSQL_TYPE_DATETIME;
      break;
    case Reading::kTime:
      bind.buffer_type = MYSQL_TYPE_TIME;
      break;
    case Reading::kBoolean:
    case Reading::kBytes:
      bind.buffer_type = MYSQL_TYPE_BLOB;
      break;
    default:
      bind.buffer_type = MYSQL_TYPE_STRING;
  }
  return bind;
}

std::span<const char> Row::Cell::Fixed() const {
  const auto bytes_of = [](const auto& value) {
    return std::span(reinterpret_cast<const char*>(&value), sizeof value);
  };
  switch (reader.reading) {
    case Reading::kInteger:
    case Reading::kUnsigned:
      return bytes_of(integer);
    case Reading::kDouble:
      return bytes_of(number);
    case Reading::kDateTime:
    case Reading::kTime:
      return bytes_of(time);
    default:
      return {};
  }
}

std::span<char> Row::Cell::Fixed() {
  const std::span<const char> same = std::as_const(*this).Fixed();
  return {const_cast<char*>(same.data()), same.size()};  // This object's own memory.
}

void Row::Bind(MYSQL_STMT* statement) {
  if (Library::Get().mysql_stmt_bind_result(statement, binds_.data()) == 0) return;
  throw platform::Error("The client library does not take the fields of the result");
}

void Row::ReadCutValues(MYSQL_STMT* statement) {
  for (unsigned i = 0; i < cells_.size(); ++i) {
    Cell& cell = cells_[i];
    if (cell.is_null != 0 || !cell.Fixed().empty() || cell.size <= cell.bytes.size()) continue;
    cell.bytes.resize(std::max<std::size_t>(cell.size, cell.bytes.size() * 2));
    binds_[i] = BindOf(cell);
    if (Library::Get().mysql_stmt_fetch_column(statement, &binds_[i], i, 0) != 0) {
      throw platform::Error("The client library does not give a long value as a whole");
    }
  }
  Bind(statement);
}

void Row::SetTexts(MYSQL_ROW texts, const unsigned long* sizes) {
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    cells_[i].is_null = static_cast<my_bool>(texts[i] == nullptr);
    cells_[i].size = sizes[i];
    cells_[i].bytes.assign(texts[i] != nullptr ? texts[i] : "", sizes[i]);
  }
}

[[gnu::noinline]] VariantView Row::ReadTime(Cell& cell) {
  const MYSQL_TIME& time = cell.time;
  const unsigned hours = time.hour + time.day * 24;
  if (time.neg == 0 && hours < 24) {
    DateTime moment;
    moment.hour = static_cast<std::uint8_t>(hours);
    moment.minute = static_cast<std::uint8_t>(time.minute);
    moment.second = static_cast<std::uint8_t>(time.second);
    moment.nanosecond = static_cast<std::uint32_t>(time.second_part * 1000);
    return moment;
  }
  std::array<char, 64> text{};
  const int size = std::snprintf(text.data(), text.size(), "%s%02u:%02u:%02u.%06lu", time.neg != 0 ? "-" : "",
                                 hours, time.minute, time.second, time.second_part);
  const unsigned digits = std::min(cell.reader.digits, 6U);
  cell.bytes.assign(text.data(), static_cast<std::size_t>(size) - (digits == 0 ? 7 : 6 - digits));
  return std::string_view(cell.bytes);
}

VariantView Row::Value(std::size_t column) {
  Cell& cell = cells_[column];
  if (cell.is_null != 0) return platform::Null{};
  switch (cell.reader.reading) {
    case Reading::kInteger:
      return cell.integer;
    case Reading::kUnsigned:
      return ReadUnsigned(cell.integer, cell.bytes);
    case Reading::kDouble:
      return cell.number;
    case Reading::kSingle:
      return ReadSingle(cell.Text());
    case Reading::kDecimal:
      return platform::DecimalView{cell.Text()};
    case Reading::kBoolean:
      return cell.size > 0 && cell.bytes[0] != 0;
    case Reading::kDateTime:
      return ReadDateTime(cell.time);
    case Reading::kTime:
      return ReadTime(cell);
    case Reading::kText:
      break;
    case Reading::kBytes:
      return platform::BytesView{reinterpret_cast<const std::uint8_t*>(cell.bytes.data()), cell.size};
  }
  return cell.Text();
}

std::size_t Row::ByteCount() const {
  std::size_t count = 0;
  for (const Cell& cell : cells_) count += cell.is_null != 0 ? 0 : cell.size;
  return count;
}

void Row::Save(RowsAside& rows) {
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const std::span<const char> fixed = std::as_const(cells_[i]).Fixed();
    bytes_[i] = fixed.empty() ? cells_[i].Text() : std::string_view(fixed.data(), fixed.size());
    if (cells_[i].is_null != 0) bytes_[i] = {};
  }
  rows.Add(bytes_);
}

bool Row::Load(RowsAside& rows) {
  if (!rows.Next(bytes_)) return false;
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    Cell& cell = cells_[i];
    const std::span<char> fixed = cell.Fixed();
    cell.is_null = static_cast<my_bool>(bytes_[i].data() == nullptr);
    cell.size = static_cast<unsigned long>(bytes_[i].size());
    if (fixed.empty()) cell.bytes = bytes_[i];
    std::ranges::copy(bytes_[i].substr(0, fixed.size()), fixed.begin());
  }
  return true;
}

}  // namespace dralo::database::mariadb
