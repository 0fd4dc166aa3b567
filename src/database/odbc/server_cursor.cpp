#include "database/odbc/server_cursor.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include "database/odbc/error.h"
#include "database/odbc/row_packing.h"
#include "database/statement_text.h"
#include "dralo/error.h"

namespace dralo::database::odbc {

namespace {

/// Of a result of unknown length.
constexpr std::int64_t kFirstRows = 100;

constexpr std::int64_t kRowsPerFetch = 1000;

}  // namespace

ServerCursor::ServerCursor(Session& session, std::string_view query, std::int64_t max_records)
    : session_(session),
      query_(WithoutEnd(query)),
      max_records_(max_records),
      name_(session.NewCursorName()) {}

ServerCursor::~ServerCursor() { Close(); }

std::int64_t ServerCursor::RowsWanted(std::int64_t at_most) const {
  return max_records_ == 0 ? at_most
                           : std::clamp<std::int64_t>(max_records_ - position_ - passed_, 0, at_most);
}

std::string ServerCursor::FetchText(std::int64_t rows) const {
  return "FETCH " + std::to_string(rows) + " FROM " + name_;
}

std::string ServerCursor::Declaration(std::string_view query) const {
  std::string text = "DECLARE " + name_ + " NO SCROLL CURSOR WITH HOLD FOR ";
  return text.append(query).append("\n");
}

bool ServerCursor::Open(SQLHSTMT statement, Binding& parameters, bool is_lazy, bool wants_origins) {
  session_.Settle();
  requested_ = is_lazy ? 0 : RowsWanted(kFirstRows);
  const bool begins = !session_.IsInTransaction();
  if (parameters.Count() > 0) {
    if (begins) session_.GetLink().Run("BEGIN");
    session_.SetCursorTransaction(begins);
    owns_transaction_ = begins;
    if (!OpenWithParameters(statement, parameters)) return false;
    description_ = Describe(session_.GetLink(), statement, query_, wants_origins);
    return true;
  }
  session_.SetCursorTransaction(begins);
  owns_transaction_ = begins;
  const std::string columns_of = begins ? "BEGIN;" + ColumnsText() : ColumnsText();
  if (IsRefusal(session_.GetLink().Execute(statement, columns_of), statement)) return false;
  FindResultWithColumns(statement);
  description_ = Describe(session_.GetLink(), statement, query_, wants_origins);
  SQLFreeStmt(statement, SQL_CLOSE);
  if (IsRefusal(session_.GetLink().Execute(statement, RowsText()), statement)) return false;
  is_open_ = true;
  FindResultWithColumns(statement);
  return true;
}

/// A cursor only to know the columns of the query.
std::string ServerCursor::ColumnsText() const {
  return "DECLARE dralo_columns NO SCROLL CURSOR FOR " + query_ +
         "\n;FETCH 0 FROM dralo_columns;CLOSE dralo_columns";
}

std::string ServerCursor::RowsText() {
  const std::size_t columns = description_.columns->size();
  is_packed_ = 0 < columns && columns <= kMaxPackedColumns;
  const std::string rows = is_packed_ ? "SELECT " + PackedRowText(columns) + " FROM (" + query_ + "\n) " +
                                            PackedSource("dralo_row", columns)
                                      : query_;
  return Declaration(rows) + ";" + FetchText(requested_);
}

bool ServerCursor::OpenWithParameters(SQLHSTMT statement, Binding& parameters) {
  if (!Declare(statement, parameters)) return false;
  is_open_ = true;
  Run(statement, FetchText(requested_));
  return true;
}

void ServerCursor::FindResultWithColumns(SQLHSTMT statement) {
  SQLSMALLINT columns = 0;
  while (SQL_SUCCEEDED(SQLNumResultCols(statement, &columns)) && columns == 0) {
    if (!SQL_SUCCEEDED(SQLMoreResults(statement))) return;
  }
}

/// Throws when the statement failed for another reason than what it is. Either way the transaction that was
/// begun for it ends.
bool ServerCursor::IsRefusal(SQLRETURN code, SQLHSTMT statement) {
  if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA) return false;
  const platform::Error error = session_.GetLink().ErrorOf(statement, query_);
  SQLFreeStmt(statement, SQL_CLOSE);
  if (owns_transaction_) {
    session_.SetCursorTransaction(false);
    try {
      session_.GetLink().Run("ROLLBACK");
    } catch (const platform::Error&) {
      throw error;
    }
  }
  if (!IsRefusalOfPostgreSql(error)) throw error;
  return true;
}

bool ServerCursor::Declare(SQLHSTMT statement, Binding& parameters) {
  const Link& link = session_.GetLink();
  SQLRETURN code = link.Prepare(statement, Declaration(query_));
  if (SQL_SUCCEEDED(code)) {
    parameters.Bind(link, statement, query_);
    code = link.ExecutePrepared(statement);
  }
  const bool is_refusal = IsRefusal(code, statement);
  SQLFreeStmt(statement, SQL_CLOSE);
  SQLFreeStmt(statement, SQL_RESET_PARAMS);
  return !is_refusal;
}

void ServerCursor::Run(SQLHSTMT statement, const std::string& text) {
  const Link& link = session_.GetLink();
  link.Require(link.Execute(statement, text), statement, query_);
}

void ServerCursor::FetchAhead(SQLHSTMT statement) {
  const std::int64_t behind = position_ + requested_;
  const bool is_long = requested_ == kRowsPerFetch && (max_records_ == 0 || behind < max_records_);
  const Link& link = session_.GetLink();
  if (!is_long || link.Background().IsStarted()) return;
  requested_ahead_ = max_records_ == 0 ? kRowsPerFetch : std::min(max_records_ - behind, kRowsPerFetch);
  try {
    link.ExecuteInBackground(statement, FetchText(requested_ahead_));
    statement_ahead_ = statement;
  } catch (const std::system_error&) {
    statement_ahead_ = nullptr;  // No thread to be had: the rows are fetched when they are asked for.
  }
}

bool ServerCursor::Fetch(SQLHSTMT statement) {
  if (IsFetchingAhead()) {
    statement_ahead_ = nullptr;
    requested_ = requested_ahead_;
    const Link& link = session_.GetLink();
    link.Require(link.Background().Take(), statement, query_);
    return true;
  }
  requested_ = is_at_end_ || !is_open_ ? 0 : RowsWanted(kRowsPerFetch);
  if (requested_ == 0) return false;
  SQLFreeStmt(statement, SQL_CLOSE);
  std::string text;
  if (passed_ > 0) text = "MOVE " + std::to_string(passed_) + " FROM " + name_ + ";";
  position_ += passed_;
  const bool has_moved = passed_ > 0;
  passed_ = 0;
  Run(statement, text + FetchText(requested_));
  if (has_moved) SQLMoreResults(statement);
  return true;
}

void ServerCursor::SetFetched(std::int64_t rows) {
  position_ += rows;
  if (rows < requested_) is_at_end_ = true;
}

void ServerCursor::Close() noexcept {
  if (!is_open_) return;
  is_open_ = false;
  if (IsFetchingAhead()) {
    // The driver's way to cancel waits for ever for a server that is frozen. Where there is a limit, the
    // statement meets it by itself.
    const bool may_interrupt =
        owns_transaction_ && !session_.IsInTransaction() && !session_.GetLink().HasLimit();
    session_.GetLink().Background().Cancel(std::exchange(statement_ahead_, nullptr), may_interrupt);
  }
  const bool ends = owns_transaction_ && session_.HasCursorTransaction();
  if (ends) session_.SetCursorTransaction(false);
  try {
    session_.GetLink().Run("CLOSE " + name_ + (ends ? ";COMMIT" : ""));
  } catch (...) {
    if (!ends) return;
    try {
      session_.GetLink().Run("ROLLBACK");
    } catch (...) {
      return;
    }
  }
}

}  // namespace dralo::database::odbc
