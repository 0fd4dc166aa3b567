#pragma once

#include <string_view>

#include "database/mariadb/link.h"
#include "database/statement_kind.h"

namespace dralo::database::mariadb {

/// The transactions of a session: the component's own, each inside the one before, the first one perhaps
/// inside one that the page has begun.
///
/// A server may undo a transaction by itself, as after a deadlock, and would carry out what is sent next
/// as changes of their own. So everything is refused until the outermost transaction is rolled back.
class Transactions {
 public:
  explicit Transactions(Link& link) : link_(link) {}

  /// These throw platform::Error when the server refuses, or has undone the transaction. The rest of an open
  /// result must have been put aside before.
  void Begin();
  void Commit();
  void RequireNotUndone();

  /// Returns false when the server could not be told; then it rolls back when the connection ends.
  bool Rollback() noexcept;

  /// Before a statement of the page is run: throws like these unless the statement ends what was undone.
  void Expect(const StatementKind& kind, std::string_view text);

  bool AreOpen() const { return depth_ > 0 || is_undone_ || link_.IsInTransaction(); }

  /// Whether the latest Begin() has begun the transaction.
  bool IsOutermost() const { return depth_ == 1 && owns_outermost_; }

  /// Forgets them at the end of their user.
  void Forget();

 private:
  void LearnWhetherUndone();
  void CommitOutermost();
  void RollBackPart();

  Link& link_;
  int depth_ = 0;                ///< How many Begin() are open.
  bool owns_outermost_ = false;  ///< The first Begin() began it, not the page.
  bool is_undone_ = false;
};

}  // namespace dralo::database::mariadb
