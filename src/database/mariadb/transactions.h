#pragma once

#include <string_view>

#include "database/mariadb/link.h"
#include "database/statement_kind.h"

namespace dralo::database::mariadb {

/// The transactions of a session: those of the component, one in another, in that of the page where it has
/// begun one.
///
/// A server may undo a transaction by itself, as after a deadlock, and would carry out what is sent next
/// as changes of their own. So everything is refused until the outermost transaction is rolled back.
class Transactions {
 public:
  explicit Transactions(Link& link) : link_(link) {}

  /// These throw platform::Error when the server refuses, or has undone the transaction. The rest of an open
  /// result must have been put aside.
  void Begin();
  void Commit();
  void RequireNotUndone();

  /// Returns false when the server could not be told; it rolls back when the connection ends.
  bool Rollback() noexcept;

  /// Before a statement of the page is run: throws like these unless it ends what was undone.
  void Expect(const StatementKind& kind, std::string_view text);

  bool AreOpen() const { return depth_ > 0 || is_undone_ || link_.IsInTransaction(); }

  /// Whether the latest Begin() has begun the transaction.
  bool IsOutermost() const { return depth_ == 1 && owns_outermost_; }

  /// With the user, whose transactions they were.
  void Forget();

 private:
  void LearnWhetherUndone();
  void CommitOutermost();
  void RollBackPart();

  Link& link_;
  int depth_ = 0;                ///< Calls of Begin() that are open.
  bool owns_outermost_ = false;  ///< The first of them began it, not the page.
  bool is_undone_ = false;
};

}  // namespace dralo::database::mariadb
