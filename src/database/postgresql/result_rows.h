#pragma once

#include <chrono>
#include <memory>
#include <optional>

#include "database/postgresql/execution.h"
#include "database/postgresql/link.h"
#include "database/postgresql/server_cursor.h"
#include "database/rows_aside.h"

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

  /// A value of the row, valid until the next call; Null has no data.
  std::string_view Value(std::size_t column) const {
    return shown_ == nullptr ? row_[column] : ValueIn(shown_, shown_row_, static_cast<int>(column));
  }

  void SetAside() noexcept override;

  /// Gives up the rest.
  void Stop() noexcept;

 private:
  using Clock = std::chrono::steady_clock;

  /// A value of a complete row, or Null for a column that the row does not have. Null looks like an empty
  /// text, so most values need not be asked about it; the text of others ends with a zero byte.
  std::string_view ValueIn(const PGresult* part, int row, int column) const {
    const char* const text = libpq_.PQgetvalue(part, row, column);
    if (text == nullptr || (*text == '\0' && libpq_.PQgetisnull(part, row, column) != 0)) return {};
    return text;
  }

  bool NextOfServer();
  void KeepRest();
  void KeepRestOfPart();
  void TakePart();
  void Release() noexcept;

  Link* link_ = nullptr;  ///< Set while the server sends rows.
  std::optional<Execution> execution_;
  std::unique_ptr<ServerCursor> cursor_;  ///< Instead of it.
  bool may_drop_ = false;
  std::optional<Clock::time_point> set_aside_at_;  ///< So that the server does not end the statement.
  const Libpq& libpq_ = Libpq::Get();
  Result part_;
  int next_ = 0;                     ///< Of the part's rows.
  const PGresult* shown_ = nullptr;  ///< The part with the current row, unless that was set aside.
  int shown_row_ = 0;
  RowsAside::Row row_;   ///< The current one of those that were set aside.
  Result current_part_;  ///< Holds the current row after the others were set aside.
  std::optional<RowsAside> aside_;
};

}  // namespace dralo::database::postgresql
