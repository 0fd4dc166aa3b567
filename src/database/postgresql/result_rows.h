#pragma once

#include <chrono>
#include <exception>
#include <memory>
#include <optional>

#include "database/postgresql/execution.h"
#include "database/postgresql/link.h"
#include "database/postgresql/rows_aside.h"

namespace dralo::database::postgresql {

/// The rows that a statement yields, one after the other.
class ResultRows final : public RowReader {
 public:
  /// Those of an answer that is there as a whole.
  ResultRows(Result answer, std::size_t columns);

  /// Those that `execution` yields in parts. When they are left before their end the connection may be
  /// dropped, unless it has something that another one has not.
  ResultRows(Link& link, const Execution& execution, std::size_t columns, bool may_drop);

  ~ResultRows() override { Stop(); }

  /// Waits for the first rows. Throws platform::Error.
  void Await();

  /// Goes to the next row; false at the end. Throws platform::Error.
  bool Next();

  /// The values of the row, until the next call.
  const Row& Current() const { return row_; }

  void SetAside() noexcept override;

  /// Gives the rest up.
  void Stop() noexcept;

 private:
  using Clock = std::chrono::steady_clock;

  bool NextOfServer(Row& row);
  void KeepRest();
  void TakePart();
  void Load(Row& row);
  void Release() noexcept;

  Link* link_ = nullptr;  ///< While the server sends rows.
  std::optional<Execution> execution_;
  bool may_drop_ = false;
  std::optional<Clock::time_point> set_aside_at_;  ///< Lest the server should end the statement.
  Result part_;
  int next_ = 0;
  Row row_;
  Result current_part_;  ///< Of the row that was the current one when the others were set aside.
  std::unique_ptr<RowsAside> aside_;
  std::exception_ptr failure_;  ///< Behind the rows that were set aside.
};

}  // namespace dralo::database::postgresql
