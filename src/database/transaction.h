#pragma once

#include "database/session.h"
#include "dralo/error.h"

namespace dralo::database {

/// Undoes what was done since its construction unless it is committed.
class Transaction {
 public:
  explicit Transaction(Session& session) : session_(session) { session_.Begin(); }
  ~Transaction() {
    if (!is_committed_) session_.Rollback();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit() {
    session_.Commit();
    is_committed_ = true;
  }

 private:
  Session& session_;
  bool is_committed_ = false;
};

/// Calls `change`, which is a transaction and tells nobody of anything before it is committed. Where it has
/// failed only because another transaction came first, it is called once more.
template <class Change>
void RepeatingAfterConflict(const Session& session, const Change& change) {
  try {
    return change();
  } catch (const platform::Error& error) {
    if (!session.MayRepeatAfter(error)) throw;
  }
  change();
}

}  // namespace dralo::database
