#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "database/odbc/binding.h"
#include "database/odbc/description.h"
#include "database/odbc/session.h"

namespace dralo::database::odbc {

/// A query of PostgreSQL whose rows stay on the server until they are fetched. PostgreSQL's driver would read
/// a whole result into memory at once; besides, the rows of all pages of a query come from the same plan, so
/// that equal sort keys have the same order on all of them.
///
/// A cursor lives in a transaction, which is kept open until the cursor is closed or another statement is
/// run; the server then sets the rest of the rows aside.
class ServerCursor {
 public:
  ServerCursor(Session& session, std::string_view query, std::int64_t max_records);
  ~ServerCursor();
  ServerCursor(const ServerCursor&) = delete;
  ServerCursor& operator=(const ServerCursor&) = delete;

  /// Declares the cursor and fetches the first rows, none of them when `is_lazy`. `wants_origins` as for
  /// Describe(). Returns false, and has done nothing, when the query cannot have a cursor, or is wrong.
  /// Throws platform::Error when it is accepted but fails.
  bool Open(SQLHSTMT statement, Binding& parameters, bool is_lazy, bool wants_origins);

  /// Whether each row comes as one text.
  bool IsPacked() const { return is_packed_; }

  /// After Open(): the columns of the query, which `statement` does not have any more.
  const Description& GetDescription() const { return description_; }

  /// Passes over `rows` rows that were not fetched yet.
  void Skip(std::int64_t rows) { passed_ += rows; }

  /// Fetches the next rows, for `statement`. False at the end or at the limit.
  bool Fetch(SQLHSTMT statement);

  /// While the rows of the last fetch are read: fetches those behind them in the background, for another
  /// statement, when the result turns out to be a long one. The next Fetch() must be for that statement.
  void FetchAhead(SQLHSTMT statement);

  bool IsFetchingAhead() const { return statement_ahead_ != nullptr; }

  /// After all rows of a fetch were read: how many there were.
  void SetFetched(std::int64_t rows);

  void Close() noexcept;

 private:
  std::int64_t RowsWanted(std::int64_t at_most) const;
  std::string FetchText(std::int64_t rows) const;
  void Run(SQLHSTMT statement, const std::string& text);
  std::string ColumnsText() const;
  std::string RowsText();
  std::string Declaration(std::string_view query) const;
  bool OpenWithParameters(SQLHSTMT statement, Binding& parameters);
  bool Declare(SQLHSTMT statement, Binding& parameters);
  static void FindResultWithColumns(SQLHSTMT statement);
  bool IsRefusal(SQLRETURN code, SQLHSTMT statement);

  Session& session_;
  const std::string query_;
  const std::int64_t max_records_;
  const std::string name_;
  bool is_packed_ = false;
  Description description_;
  bool is_open_ = false;
  bool owns_transaction_ = false;
  bool is_at_end_ = false;
  std::int64_t position_ = 0;   ///< Rows that were fetched or passed over on the server.
  std::int64_t passed_ = 0;     ///< Rows to pass over before the next fetch.
  std::int64_t requested_ = 0;  ///< Rows that the last fetch asked for.
  std::int64_t requested_ahead_ = 0;
  SQLHSTMT statement_ahead_ = nullptr;
};

}  // namespace dralo::database::odbc
