#include "database/odbc/statement_cache.h"

#include <algorithm>
#include <utility>

namespace dralo::database::odbc {

std::unique_ptr<Statement> StatementCache::Take(std::string_view text, bool is_limited) {
  const auto fits = [&](const std::unique_ptr<Statement>& kept) {
    return kept->text == text && (kept->is_limited == is_limited || (is_limited && kept->refuses_limit));
  };
  const auto found = std::ranges::find_if(statements_, fits);
  if (found == statements_.end()) return nullptr;
  auto statement = std::move(*found);
  statements_.erase(found);
  return statement;
}

void StatementCache::Give(std::unique_ptr<Statement> statement) noexcept {
  if (statements_.size() >= kCapacity) statements_.erase(statements_.begin());
  statements_.push_back(std::move(statement));
}

void StatementCache::Forget(std::string_view text) noexcept {
  std::erase_if(statements_, [&](const auto& kept) { return kept->text == text; });
}

void StatementCache::Abandon() noexcept {
  for (const auto& statement : statements_) statement->handle.Release();
  statements_.clear();
}

}  // namespace dralo::database::odbc
