#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "database/kept_statements.h"
#include "database/odbc/statement.h"

namespace dralo::database::odbc {

/// The prepared queries of a session that are not open; the most recently used ones are kept. Each takes
/// memory on the server too. Belongs to one link.
class StatementCache {
 public:
  static constexpr std::size_t kCapacity = 32;

  /// The statement for a query with or without a limit, or nullptr when none is kept. For a query that
  /// refuses a limit, the one without.
  std::unique_ptr<Statement> Take(std::string_view text, bool is_limited);

  /// Takes back a statement without an open result.
  void Give(std::unique_ptr<Statement> statement) noexcept;

  /// Drops what was prepared for a query.
  void Forget(std::string_view text) noexcept;

  /// Drops everything. To be called before the link is closed; that frees the statements without telling the
  /// server about each.
  void Abandon() noexcept;

 private:
  KeptStatements<Statement> kept_{kCapacity};
};

}  // namespace dralo::database::odbc
