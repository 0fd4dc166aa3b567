#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "database/mariadb/statement.h"

namespace dralo::database::mariadb {

/// The prepared statements of a session that are not running; the most recently used ones are kept. Each
/// takes memory on the server too.
class StatementCache {
 public:
  static constexpr std::size_t kCapacity = 32;

  /// Longer statements are not kept.
  static constexpr std::size_t kMaxTextBytes = 32'768;

  /// Room for all from the start, so that Give() never fails.
  StatementCache() { statements_.reserve(kCapacity); }

  /// The statement for a text, or nullptr when none is kept.
  std::unique_ptr<Statement> Take(std::string_view text, Form form);

  /// Whether a plain statement is kept for the text and known not to take a limit.
  bool RefusesLimit(std::string_view text) const;

  /// Whether Give() would keep the statement and close none.
  bool HasRoomFor(const Statement& statement) const {
    return statements_.size() < kCapacity && statement.IsOfThisConnection() &&
           statement.Text().size() <= kMaxTextBytes;
  }

  /// Takes back a statement without an open result.
  void Give(std::unique_ptr<Statement> statement) noexcept;

  void Clear() noexcept { statements_.clear(); }

 private:
  std::vector<std::unique_ptr<Statement>> statements_;  ///< In the order of their last use.
};

}  // namespace dralo::database::mariadb
