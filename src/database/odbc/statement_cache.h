#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "database/odbc/statement.h"

namespace dralo::database::odbc {

/// The prepared queries of a session that are not open at present; those used last are kept. Each takes
/// memory of the server too. Belongs to one link.
class StatementCache {
 public:
  static constexpr std::size_t kCapacity = 32;

  /// Room for all from the start, so that giving a statement back never fails.
  StatementCache() { statements_.reserve(kCapacity); }

  /// The statement for a query with or without a limit, or nullptr when none is kept. Where the query refuses
  /// a limit, the one without.
  std::unique_ptr<Statement> Take(std::string_view text, bool is_limited);

  /// Takes back a statement that has no open result.
  void Give(std::unique_ptr<Statement> statement) noexcept;

  /// Forgets what was prepared for a query.
  void Forget(std::string_view text) noexcept;

  /// Forgets all. To be called before the link is closed, which frees the statements without telling the
  /// server of each.
  void Abandon() noexcept;

 private:
  std::vector<std::unique_ptr<Statement>> statements_;  ///< In the order of their last use.
};

}  // namespace dralo::database::odbc
