#include "database/odbc/server_cursor.h"

#include <algorithm>

#include "database/odbc/error.h"
#include "platform/error.h"

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

/// In one round trip: the columns of the query, from a cursor of which no row is fetched, and the packed
/// rows.
bool ServerCursor::Open(SQLHSTMT statement, Binding& parameters, bool is_lazy, bool wants_origins) {
  session_.Settle();
  const bool has_parameters = parameters.Count() > 0;
  is_packed_ = !has_parameters;
  requested_ = is_lazy ? 0 : RowsWanted(kFirstRows);
  const bool begins = !session_.IsInTransaction();
  if (has_parameters) {
    if (begins) session_.GetLink().Run("BEGIN");
    session_.SetCursorTransaction(begins);
    owns_transaction_ = begins;
    if (!OpenWithParameters(statement, parameters)) return false;
    description_ = Describe(session_.GetLink(), statement, query_, wants_origins);
    return true;
  }
  session_.SetCursorTransaction(begins);
  owns_transaction_ = begins;
  const std::string text = (begins ? "BEGIN;" : "") + PackedText() + ";" + FetchText(requested_);
  if (IsRefusal(session_.GetLink().Execute(statement, text), statement)) return false;
  is_open_ = true;
  FindResultWithColumns(statement);
  description_ = Describe(session_.GetLink(), statement, query_, wants_origins);
  SQLMoreResults(statement);
  FindResultWithColumns(statement);
  return true;
}

/// Declares a cursor only to know the columns of the query, then the one of its packed rows.
std::string ServerCursor::PackedText() const {
  return "DECLARE dralo_columns NO SCROLL CURSOR FOR " + query_ +
         "\n;FETCH 0 FROM dralo_columns;CLOSE dralo_columns;" +
         Declaration("SELECT dralo_row::text FROM (" + query_ + "\n) dralo_row");
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
    code = SQLExecute(statement);
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

bool ServerCursor::Fetch(SQLHSTMT statement) {
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
