#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "database/kept_statements.h"
#include "database/sqlite/statement.h"

namespace dralo::database::sqlite {

/// The prepared statements of a session that are not running; the most recently used ones are kept.
class StatementCache {
 public:
  static constexpr std::size_t kCapacity = 64;

  /// Longer statements are not kept.
  static constexpr std::size_t kMaxTextBytes = 32'768;

  /// The statement for a text, or nullptr when none is kept.
  std::unique_ptr<Statement> Take(std::string_view text, Form form);

  /// Whether a plain statement is kept for the text that is known not to accept a limit.
  bool RefusesLimit(std::string_view text) const;

  /// Takes back a statement that was reset.
  void Give(std::unique_ptr<Statement> statement) noexcept;

 private:
  KeptStatements<Statement> kept_{kCapacity};
};

}  // namespace dralo::database::sqlite
