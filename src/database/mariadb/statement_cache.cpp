#include "database/mariadb/statement_cache.h"

#include <algorithm>
#include <utility>

namespace dralo::database::mariadb {

std::unique_ptr<Statement> StatementCache::Take(std::string_view text, Form form) {
  const auto found = std::find_if(statements_.rbegin(), statements_.rend(), [&](const auto& statement) {
    return statement->GetForm() == form && statement->Text() == text;
  });
  if (found == statements_.rend()) return nullptr;
  auto statement = std::move(*found);
  statements_.erase(std::next(found).base());
  return statement;
}

bool StatementCache::RefusesLimit(std::string_view text) const {
  return std::ranges::any_of(statements_, [&](const auto& statement) {
    return statement->RefusesLimit() && statement->Text() == text;
  });
}

void StatementCache::Give(std::unique_ptr<Statement> statement) noexcept {
  if (!statement->IsOfThisConnection() || statement->Text().size() > kMaxTextBytes) return;
  if (statements_.size() >= kCapacity) statements_.erase(statements_.begin());
  statement->NoteKept();
  statements_.push_back(std::move(statement));
}

}  // namespace dralo::database::mariadb
