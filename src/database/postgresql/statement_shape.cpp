#include "database/postgresql/statement_shape.h"

#include "text/white_space.h"

namespace dralo::database::postgresql {

namespace {

/// Whether the words of the text are where ShapeOf() finds them: quotes and comments of MariaDB and of
/// PostgreSQL do not begin with the same signs.
bool HasSharedWords(std::string_view text) {
  if (text.find_first_of("\\`#$") != text.npos || text.find("/*") != text.npos) return false;
  for (auto dashes = text.find("--"); dashes != text.npos; dashes = text.find("--", dashes + 2)) {
    const std::string_view behind = text.substr(dashes + 2, 1);
    if (!behind.empty() && !text::IsAsciiSpace(behind.front())) return false;
  }
  return true;
}

}  // namespace

SelectShape ShapeOfRows(const Statement& query) {
  if (!query.kind.is_select || query.kind.calls_functions || !HasSharedWords(query.text)) return {};
  SelectShape shape = ShapeOf(query.text);
  return shape.has_rows_of_tables && !shape.has_windows ? shape : SelectShape();
}

}  // namespace dralo::database::postgresql
