#include "database/odbc/packed_row.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <utility>

#include "database/odbc/row_packing.h"
#include "text/ascii.h"
#include "text/decimal.h"

namespace dralo::database::odbc {

namespace {

using platform::VariantView;

/// Takes the field at the front of `text` off.
std::string_view TakeField(std::string_view& text, const char* separator) {
  const char* const begin = text.data();
  const char* const end = begin + text.size();
  for (const char* at = begin;; ++at) {
    at = static_cast<const char*>(std::memchr(at, *separator, static_cast<std::size_t>(end - at)));
    if (at == nullptr || end - at < std::ptrdiff_t{kSeparatorBytes}) break;
    if (std::memcmp(at, separator, kSeparatorBytes) != 0) continue;
    text = {at + kSeparatorBytes, end};
    return {begin, at};
  }
  return std::exchange(text, text.substr(text.size()));
}

std::uint64_t ReadNullBits(std::string_view text) {
  return text::ParseNumber<std::uint64_t>(text).value_or(0);
}

/// Without the offset of a time zone: "10:20:30+02".
std::string_view WithoutZone(std::string_view text, std::size_t time) {
  const auto zone = text.find_first_of("+-", std::min(time, text.size()));
  return zone == text.npos || text.ends_with("BC") ? text : text.substr(0, zone);
}

VariantView ReadInteger(std::string_view text) {
  const auto number = text::ParseNumber<std::int64_t>(text);
  return number ? VariantView(*number) : text;
}

/// The older spelling: "\\" for a backslash, "\377" for a byte that is no ASCII character.
void Unescape(std::string_view text, std::string& bytes) {
  bytes.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_octal = text[i] == '\\' && i + 3 < text.size() && text::IsDigit(text[i + 1]);
    if (is_octal) {
      bytes += static_cast<char>((text[i + 1] - '0') << 6 | (text[i + 2] - '0') << 3 | (text[i + 3] - '0'));
      i += 3;
    } else {
      if (text[i] == '\\') ++i;
      if (i < text.size()) bytes += text[i];
    }
  }
}

VariantView ReadBytes(std::string_view text, std::string& scratch) {
  if (text.starts_with("\\x")) {
    text.remove_prefix(2);
    scratch.resize(text.size() / 2);
    for (std::size_t i = 0; i < scratch.size(); ++i) {
      scratch[i] = static_cast<char>(text::HexDigit(text[2 * i]) << 4 | text::HexDigit(text[2 * i + 1]));
    }
  } else {
    Unescape(text, scratch);
  }
  return platform::BytesView{reinterpret_cast<const std::uint8_t*>(scratch.data()), scratch.size()};
}

}  // namespace

std::string_view PackedRow::Parse(std::string_view text) {
  const char* const separator = FieldSeparator().data();
  std::uint64_t nulls = ReadNullBits(TakeField(text, separator));
  for (auto& field : fields_) {
    field = (nulls & 1) != 0 ? std::nullopt : std::optional(TakeField(text, separator));
    nulls >>= 1;
  }
  return text;
}

VariantView PackedRow::Value(std::size_t column) {
  if (!fields_[column]) return {};
  const std::string_view text = *fields_[column];
  switch (readers_[column].reading) {
    case Reading::kInteger:
      return ReadInteger(text);
    case Reading::kBoolean:
      return text == "t" || text == "1";
    case Reading::kDouble:
      return Read(Reading::kDoubleText, text, scratch_[column]);
    case Reading::kDateText:
      return Read(Reading::kDateText, WithoutZone(text, sizeof "YYYY-MM-DD"), scratch_[column]);
    case Reading::kTimeText:
      return Read(Reading::kTimeText, WithoutZone(text, 0), scratch_[column]);
    case Reading::kBytes:
      return ReadBytes(text, scratch_[column]);
    default:
      return Read(readers_[column].reading, text, scratch_[column]);
  }
}

}  // namespace dralo::database::odbc
