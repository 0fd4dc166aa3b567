#pragma once

#include "database/session.h"

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

}  // namespace dralo::database
