#include "database/odbc/statement_cache.h"

#include <utility>

namespace dralo::database::odbc {

std::unique_ptr<Statement> StatementCache::Take(std::string_view text, bool is_limited) {
  return kept_.Take([&](const Statement& kept) {
    return kept.text == text && (kept.is_limited == is_limited || (is_limited && kept.refuses_limit));
  });
}

void StatementCache::Give(std::unique_ptr<Statement> statement) noexcept { kept_.Give(std::move(statement)); }

void StatementCache::Forget(std::string_view text) noexcept {
  kept_.Forget([&](const Statement& kept) { return kept.text == text; });
}

void StatementCache::Abandon() noexcept {
  for (const auto& statement : kept_.All()) statement->handle.Release();
  kept_.Clear();
}

}  // namespace dralo::database::odbc
