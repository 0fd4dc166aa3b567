#pragma once

#include <chrono>
#include <exception>
#include <memory>
#include <optional>

#include "database/postgresql/execution.h"
#include "database/postgresql/link.h"
#include "database/postgresql/rows_aside.h"
#include "database/postgresql/server_cursor.h"

namespace dralo::database::postgresql {

/// The rows that a statement yields, one after the other.
class ResultRows final : public RowReader {
 public:
  /// The rows of a complete answer.
  ResultRows(Result answer, std::size_t columns);

  /// The rows that `execution` yields in parts. With `may_drop`, leaving them before their end may drop the
  /// connection.
  ResultRows(Link& link, const Execution& execution, std::size_t columns, bool may_drop);

  /// Those of a cursor of the server, behind `first`.
  ResultRows(Link& link, std::unique_ptr<ServerCursor> cursor, Result first);

  ~ResultRows() override { Stop(); }

  /// Waits for the first rows. Throws platform::Error.
  void Await();

  /// Goes to the next row; false at the end. Throws platform::Error.
  bool Next();

  /// The values of the row; valid until the next call.
  const Row& Current() const { return row_; }

  void SetAside() noexcept override;

  /// Gives up the rest.
  void Stop() noexcept;

 private:
  using Clock = std::chrono::steady_clock;

  bool NextOfServer(Row& row);
  void KeepRest();
  void TakePart();
  void Load(Row& row);
  void Release() noexcept;

  Link* link_ = nullptr;  ///< Set while the server sends rows.
  std::optional<Execution> execution_;
  std::unique_ptr<ServerCursor> cursor_;  ///< Instead of it.
  bool may_drop_ = false;
  std::optional<Clock::time_point> set_aside_at_;  ///< So that the server does not end the statement.
  Result part_;
  int next_ = 0;
  Row row_;
  Result current_part_;  ///< Holds the current row after the others were set aside.
  std::unique_ptr<RowsAside> aside_;
  std::exception_ptr failure_;  ///< Thrown after the rows that were set aside.
};

}  // namespace dralo::database::postgresql
