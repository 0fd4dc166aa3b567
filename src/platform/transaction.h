#pragma once

namespace dralo::platform {

/// A transaction that begins with the object, and is undone at its end unless it was committed. `Target` is
/// what begins, commits and rolls back: a connection or, below it, a session.
template <class Target>
class Transaction {
 public:
  explicit Transaction(Target& target) : target_(target) { target_.Begin(); }
  ~Transaction() {
    if (!is_committed_) target_.Rollback();
  }
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  void Commit() {
    target_.Commit();
    is_committed_ = true;
  }

 private:
  Target& target_;
  bool is_committed_ = false;
};

}  // namespace dralo::platform
