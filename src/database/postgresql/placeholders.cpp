#include "database/postgresql/placeholders.h"

#include <cstddef>

#include "text/sql_piece.h"

namespace dralo::database::postgresql {

namespace {

/// A comment, in which others may stand.
std::size_t SizeOfBlockComment(std::string_view text) {
  int depth = 0;
  for (std::size_t i = 0; i + 1 < text.size(); ++i) {
    const std::string_view pair = text.substr(i, 2);
    if (pair == "/*") {
      ++depth;
    } else if (pair == "*/" && --depth == 0) {
      return i + 2;
    } else if (pair != "*/") {
      continue;
    }
    ++i;
  }
  return text.size();
}

/// The size of the part that a "?" in it would belong to; a single sign otherwise. Comments stand in each
/// other here alone, and "`" quotes nothing.
std::size_t SizeOfPart(std::string_view text) {
  if (text.starts_with("/*")) return SizeOfBlockComment(text);
  return text.starts_with('`') ? 1 : text::FirstSqlPiece(text).size();
}

}  // namespace

NumberedStatement NumberParameters(std::string_view statement) {
  NumberedStatement numbered;
  numbered.text.reserve(statement.size() + 8);
  while (!statement.empty()) {
    const std::string_view part = statement.substr(0, SizeOfPart(statement));
    if (part == "?") {
      numbered.text.append("$").append(std::to_string(++numbered.parameters));
    } else {
      numbered.text.append(part == "??" ? "?" : part);
    }
    statement.remove_prefix(part.size());
  }
  return numbered;
}

}  // namespace dralo::database::postgresql
