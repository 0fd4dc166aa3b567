#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "database/kept_statements.h"
#include "database/mariadb/statement.h"

namespace dralo::database::mariadb {

/// The prepared statements of a session that are not running; the most recently used ones are kept. Each
/// takes memory on the server too.
class StatementCache {
 public:
  static constexpr std::size_t kCapacity = 32;

  /// Longer statements are not kept.
  static constexpr std::size_t kMaxTextBytes = 32'768;

  /// The statement for a text, or nullptr when none is kept.
  std::unique_ptr<Statement> Take(std::string_view text, Form form);

  /// Whether a plain statement is kept for the text and known not to take a limit.
  bool RefusesLimit(std::string_view text) const;

  /// Takes back a statement without an open result.
  void Give(std::unique_ptr<Statement> statement) noexcept;

  void Clear() noexcept { kept_.Clear(); }

 private:
  KeptStatements<Statement> kept_{kCapacity};
};

}  // namespace dralo::database::mariadb
