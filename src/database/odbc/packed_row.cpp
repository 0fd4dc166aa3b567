#include "database/odbc/packed_row.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "database/ascii.h"

namespace dralo::database::odbc {

namespace {

using platform::VariantView;

struct Field {
  std::optional<std::string_view> value;
  char* end;  ///< The "," or ")" behind it.
};

char* Find(char* from, char* end, char c) {
  auto* const found = static_cast<char*>(std::memchr(from, c, static_cast<std::size_t>(end - from)));
  return found != nullptr ? found : end;
}

char* FindSpecial(char* from, char* end) {
  char* const quote = Find(from, end, '"');
  return Find(from, quote, '\\');
}

/// Inside of quotes a quote is doubled, or stands behind a backslash as a backslash does.
Field TakeQuoted(char* from, char* end) {
  char* to = ++from;
  char* const start = to;
  while (from < end) {
    char* const special = FindSpecial(from, end);
    const auto size = static_cast<std::size_t>(special - from);
    if (to != from) std::memmove(to, from, size);
    to += size;
    from = special;
    if (from == end) break;
    const bool is_last = *from == '"' && (from + 1 == end || from[1] != '"');
    if (is_last) return {std::string_view(start, static_cast<std::size_t>(to - start)), from + 1};
    *to++ = from[1];
    from += 2;
  }
  return {std::string_view(start, static_cast<std::size_t>(to - start)), end};
}

Field Take(char* from, char* end) {
  if (from < end && *from == '"') return TakeQuoted(from, end);
  auto* const stop = std::find_if(from, end, [](char c) { return c == ',' || c == ')'; });
  if (stop == from) return {std::nullopt, stop};
  return {std::string_view(from, static_cast<std::size_t>(stop - from)), stop};
}

/// Without the offset of a time zone: "10:20:30+02".
std::string_view WithoutZone(std::string_view text, std::size_t time) {
  const auto zone = text.find_first_of("+-", std::min(time, text.size()));
  return zone == text.npos || text.ends_with("BC") ? text : text.substr(0, zone);
}

VariantView ReadInteger(std::string_view text) {
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc{} && end == text.data() + text.size()) return number;
  return text;
}

unsigned NibbleOf(char c) {
  return IsDigit(c) ? static_cast<unsigned>(c - '0') : static_cast<unsigned>(ToUpper(c) - 'A' + 10);
}

VariantView ReadBytes(std::string_view text, std::string& scratch) {
  if (text.starts_with("\\x")) {
    text.remove_prefix(2);
    scratch.resize(text.size() / 2);
    for (std::size_t i = 0; i < scratch.size(); ++i) {
      scratch[i] = static_cast<char>(NibbleOf(text[2 * i]) << 4 | NibbleOf(text[2 * i + 1]));
    }
    text = scratch;
  }
  return platform::BytesView{reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

}  // namespace

std::span<char> PackedRow::Parse(std::span<char> text) {
  fields_.clear();
  char* const end = text.data() + text.size();
  char* at = text.data();
  while (at < end && fields_.size() < readers_.size()) {
    const Field field = Take(at + 1, end);
    fields_.push_back(field.value);
    at = field.end;
  }
  fields_.resize(readers_.size());
  return {std::min(at + 1, end), end};
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
