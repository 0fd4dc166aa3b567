#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/odbc/description.h"
#include "database/odbc/handle.h"
#include "database/statement_kind.h"

namespace dralo::database::odbc {

/// What is known of a query that was run before.
struct KnownQuery {
  StatementKind kind;
  Description description;
};

/// The queries that a session ran last, and statements that are prepared for them. Belongs to one link.
class StatementCache {
 public:
  /// How many rows of its query a statement yields.
  enum class Yield { kOneRow, kSomeRows };

  /// Nothing when the query is not known.
  std::shared_ptr<const KnownQuery> Find(std::string_view text);

  /// Statements that are prepared for the query are forgotten: they may be for other columns.
  void Remember(std::string_view text, std::shared_ptr<const KnownQuery> query);

  /// Also the statements that are prepared for it.
  void Forget(std::string_view text);

  /// Forgets all. To be called before the link is closed, which frees the statements without telling the
  /// server of each.
  void Abandon() noexcept;

  /// The statement that is prepared for a query, to be used by one cursor; an empty handle when there is none
  /// or another cursor uses it.
  StatementHandle Take(std::string_view text, Yield yield);

  /// Gives a prepared statement back, which has no open result any more.
  void Keep(std::string_view text, Yield yield, StatementHandle statement);

 private:
  struct Entry {
    std::string text;
    std::shared_ptr<const KnownQuery> query;
    std::array<StatementHandle, 2> statements = {};  ///< For each yield.
    std::int64_t last_use = 0;
  };

  Entry* FindEntry(std::string_view text);
  void MakeRoom();

  std::vector<Entry> entries_;
  std::int64_t uses_ = 0;
};

}  // namespace dralo::database::odbc
