#include "database/mariadb/statement_cache.h"

#include <utility>

namespace dralo::database::mariadb {

std::unique_ptr<Statement> StatementCache::Take(std::string_view text, Form form) {
  return kept_.Take([&](const Statement& kept) { return kept.GetForm() == form && kept.Text() == text; });
}

bool StatementCache::RefusesLimit(std::string_view text) const {
  return kept_.HasAny([&](const Statement& kept) { return kept.RefusesLimit() && kept.Text() == text; });
}

void StatementCache::Give(std::unique_ptr<Statement> statement) noexcept {
  if (!statement->IsOfThisConnection() || statement->Text().size() > kMaxTextBytes) return;
  statement->NoteKept();
  kept_.Give(std::move(statement));
}

}  // namespace dralo::database::mariadb
