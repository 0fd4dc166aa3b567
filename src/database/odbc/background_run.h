#pragma once

#include <sql.h>

#include <functional>
#include <future>

namespace dralo::database::odbc {

/// A statement of a connection that runs in a thread of its own, so that the database works while the rows
/// before are read. No signal is handled in that thread. There is one at a time, and no other statement of
/// the connection is run meanwhile: Await() comes first.
class BackgroundRun {
 public:
  BackgroundRun() = default;
  ~BackgroundRun() { Await(); }
  BackgroundRun(const BackgroundRun&) = delete;
  BackgroundRun& operator=(const BackgroundRun&) = delete;

  /// `run` returns what the driver does.
  void Start(std::function<SQLRETURN()> run);

  /// From Start() to Take() or Cancel().
  bool IsStarted() const { return result_.valid(); }

  /// Returns once the statement has ended.
  void Await() const {
    if (IsStarted()) result_.wait();
  }

  /// Like Await(). Returns what the driver returned.
  SQLRETURN Take() { return result_.get(); }

  /// Like Await(), for a result that nobody wants. With `may_interrupt` the server is told to give
  /// `statement` up when it takes long, which also fails a transaction that is open.
  void Cancel(SQLHSTMT statement, bool may_interrupt) noexcept;

 private:
  std::future<SQLRETURN> result_;
};

}  // namespace dralo::database::odbc
