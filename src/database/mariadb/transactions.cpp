#include "database/mariadb/transactions.h"

#include <exception>
#include <string>
#include <utility>

#include "database/statement_text.h"
#include "database/unknown_outcome.h"
#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database::mariadb {

namespace {

using platform::Error;

std::string Savepoint(int depth) { return "SAVEPOINT dralo_" + std::to_string(depth); }

Error Undone() {
  return Error("The database has undone the transaction; roll it back and begin again (SQLSTATE 40000)", 0,
               "40000");
}

}  // namespace

/// The server says only with its next answer whether a failed statement has ended its transaction.
void Transactions::LearnWhetherUndone() {
  const bool is_in_doubt = link_.TakeDoubt();
  if (is_in_doubt) link_.Run("DO 0");
  is_undone_ |= (is_in_doubt || depth_ > 0) && !link_.IsInTransaction();
}

void Transactions::RequireNotUndone() {
  if (!is_undone_) LearnWhetherUndone();
  if (is_undone_) throw Undone();
}

void Transactions::Begin() {
  RequireNotUndone();
  const bool is_part = link_.IsInTransaction();
  link_.Run(is_part ? Savepoint(depth_) : "BEGIN");
  owns_outermost_ |= !is_part;
  ++depth_;
}

void Transactions::Commit() {
  RequireNotUndone();
  const bool is_outermost = IsOutermost();
  if (is_outermost) {
    CommitOutermost();
  } else {
    link_.Run("RELEASE " + Savepoint(depth_ - 1));
  }
  owns_outermost_ &= !is_outermost;
  --depth_;
}

/// A server that was told may have done it, whatever became of its answer. A node that has lost its cluster
/// refuses to.
void Transactions::CommitOutermost() {
  constexpr int kNodeServesNothing = 1047;
  if (link_.IsDead()) throw link_.LastError({});
  try {
    link_.Run("COMMIT");
  } catch (const Error& error) {
    if (link_.IsDead() && error.Number() != kNodeServesNothing) throw UnknownOutcome(error);
    throw;
  }
}

bool Transactions::Rollback() noexcept {
  const bool is_outermost = IsOutermost();
  --depth_;
  try {
    if (is_outermost) {
      owns_outermost_ = is_undone_ = false;
      link_.TakeDoubt();
      link_.Run("ROLLBACK");
    } else if (!is_undone_) {
      RollBackPart();
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

/// Everything, when the part cannot be undone alone.
void Transactions::RollBackPart() {
  try {
    link_.Run("ROLLBACK TO " + Savepoint(depth_));
    link_.Run("RELEASE " + Savepoint(depth_));
  } catch (const Error&) {
    is_undone_ = true;
    link_.TakeDoubt();
    link_.Run("ROLLBACK");
  }
}

void Transactions::Expect(const StatementKind& kind, std::string_view text) {
  const bool is_end = depth_ == 0 && (kind.begins_transaction || kind.ends_transaction);
  if (!is_end) return RequireNotUndone();
  const bool gives_up = kind.begins_transaction || text::StartsWithAscii(FromFirstWord(text), "ROLLBACK");
  if (gives_up) {
    link_.TakeDoubt();
  } else {
    LearnWhetherUndone();
  }
  if (std::exchange(is_undone_, false) && !gives_up) throw Undone();
}

void Transactions::Forget() {
  depth_ = 0;
  owns_outermost_ = is_undone_ = false;
  link_.TakeDoubt();
}

}  // namespace dralo::database::mariadb
