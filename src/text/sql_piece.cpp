#include "text/sql_piece.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::text {
namespace {

bool IsOfSqlWord(char c) {
  return IsLetterOrDigit(c) || c == '_' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

/// A doubled quote ends one text and begins another, which has the same end as one text.
std::size_t QuotedSqlSize(std::string_view text) {
  const std::size_t end = text.find(text.front(), 1);
  return end == text.npos ? text.size() : end + 1;
}

/// The same where a backslash takes the meaning of the character behind it.
std::size_t EscapedSqlSize(std::string_view text) {
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] == '\\') {
      ++i;
    } else if (text[i] == text.front()) {
      return i + 1;
    }
  }
  return text.size();
}

template <class Predicate>
std::size_t RunSize(std::string_view text, Predicate belongs) {
  return static_cast<std::size_t>(std::ranges::find_if_not(text, belongs) - text.begin());
}

/// "$tag$" at the start; empty for another "$".
std::string_view DollarTag(std::string_view text) {
  const std::size_t name = RunSize(text.substr(1), [](char c) { return c != '$' && IsOfSqlWord(c); });
  const std::string_view tag = text.substr(0, name + 2);
  const bool is_tag = tag.size() > 1 && tag.ends_with('$') && !IsDigit(tag[1]);
  return is_tag ? tag : std::string_view();
}

/// Of a text that does not begin with a sign.
std::size_t WordSize(std::string_view text) {
  const std::size_t word = RunSize(text, IsOfSqlWord);
  const bool has_escapes = word == 1 && ToUpper(text.front()) == 'E' && text.substr(1).starts_with('\'');
  return has_escapes ? 1 + EscapedSqlSize(text.substr(1)) : word;
}

std::size_t FirstSqlSize(std::string_view text) {
  const char c = text.front();
  if (c == '\'' || c == '"' || c == '`') return QuotedSqlSize(text);
  if (text.starts_with("--")) return std::min(text.find('\n'), text.size());
  if (text.starts_with("/*")) {
    const std::size_t end = text.find("*/", 2);
    return end == text.npos ? text.size() : end + 2;
  }
  if (text.starts_with("??")) return 2;
  if (IsAsciiSpace(c)) return RunSize(text, IsAsciiSpace);
  if (const std::string_view tag = c == '$' ? DollarTag(text) : std::string_view(); !tag.empty()) {
    const std::size_t end = text.find(tag, tag.size());
    return end == text.npos ? text.size() : end + tag.size();
  }
  return std::max<std::size_t>(WordSize(text), 1);
}

}  // namespace

std::string_view FirstSqlPiece(std::string_view statement) {
  return statement.substr(0, FirstSqlSize(statement));
}

bool IsSqlSpace(std::string_view piece) {
  return IsAsciiSpace(piece.front()) || piece.starts_with("--") || piece.starts_with("/*");
}

std::size_t CountSqlParameters(std::string_view statement) {
  std::size_t count = 0;
  while (!statement.empty()) {
    const std::string_view piece = FirstSqlPiece(statement);
    if (piece == "?") ++count;
    statement.remove_prefix(piece.size());
  }
  return count;
}

}  // namespace dralo::text
