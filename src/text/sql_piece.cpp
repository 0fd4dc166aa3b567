#include "text/sql_piece.h"

#include <algorithm>

#include "text/ascii.h"
#include "text/white_space.h"

namespace dralo::text {
namespace {

bool IsOfSqlWord(char c) {
  return IsLetterOrDigit(c) || c == '_' || c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

/// A doubled quote ends one text and begins another, which comes to the same.
std::size_t QuotedSqlSize(std::string_view text) {
  const std::size_t end = text.find(text.front(), 1);
  return end == text.npos ? text.size() : end + 1;
}

template <class Predicate>
std::size_t RunSize(std::string_view text, Predicate belongs) {
  return static_cast<std::size_t>(std::ranges::find_if_not(text, belongs) - text.begin());
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
  return std::max<std::size_t>(RunSize(text, IsOfSqlWord), 1);
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
