#include "database/odbc/cursor.h"

#include <sqlext.h>

#include <algorithm>
#include <utility>

#include "database/odbc/base_table.h"
#include "database/statement_text.h"
#include "dralo/error.h"
#include "text/white_space.h"

namespace dralo::database::odbc {

namespace {

/// A limit up to which all rows are read at once, wherever the recordset is going to stand.
constexpr std::int64_t kFewRecords = 1000;

bool HasLimitClause(Dialect dialect) { return dialect == Dialect::kMariaDb || dialect == Dialect::kSqlite; }

void RequireStatement(const std::string& text) {
  if (text::TrimAsciiSpace(text).empty()) throw platform::Error("The statement is empty", 0, {}, text);
  if (text.find('\0') == text.npos) return;
  throw platform::Error("The statement has a zero byte in its text", 0, {}, text);
}

}  // namespace

Cursor::Cursor(Session& session, const Query& query)
    : session_(session),
      link_(session.GetLink()),
      text_(query.text),
      kind_(KindOf(query.text)),
      parameters_(query.parameters),
      max_records_(query.max_records),
      is_updatable_(query.is_updatable) {
  RequireStatement(text_);
  if (!kind_.is_query || kind_.calls_functions) session_.RunDeferred();
  statement_ = link_.NewStatement();
  RequireParameterCount();
  if (OpenServerCursor()) return;
  session_.Settle();
  if (IsLazy()) {
    Prepare();
  } else if (!RunLimited()) {
    Run(text_);
  }
}

Cursor::~Cursor() { Stop(); }

/// Only a text with a "?" may have parameters; the driver knows which "?" is one.
void Cursor::RequireParameterCount() {
  std::size_t expected = 0;
  if (text_.find('?') != text_.npos) {
    SQLSMALLINT count = 0;
    link_.Require(link_.Prepare(Statement(), text_), Statement(), text_);
    const Deadline deadline = link_.Limit();
    link_.Require(SQLNumParams(Statement(), &count), Statement(), text_);
    SQLFreeStmt(Statement(), SQL_CLOSE);
    expected = static_cast<std::size_t>(count);
  }
  const std::size_t given = parameters_.Count();
  if (expected == given) return;
  throw platform::Error("The statement expects " + std::to_string(expected) +
                            (expected == 1 ? " parameter value, but " : " parameter values, but ") +
                            std::to_string(given) + (given == 1 ? " was given" : " were given"),
                        0, {}, text_);
}

/// SQLite's driver knows the types of expressions only once the statement has run.
bool Cursor::IsLazy() const {
  if (!kind_.is_query) return false;
  const bool is_long =
      max_records_ == 0 ? link_.GetDialect() != Dialect::kSqlite : max_records_ > kFewRecords;
  return is_updatable_ || is_long;
}

bool Cursor::OpenServerCursor() {
  if (link_.GetDialect() != Dialect::kPostgreSql || !kind_.is_select) return false;
  server_cursor_.emplace(session_, text_, max_records_);
  if (!server_cursor_->Open(Statement(), parameters_, is_updatable_, is_updatable_)) {
    server_cursor_.reset();
    return false;
  }
  session_.Note(kind_);
  description_ = server_cursor_->GetDescription();
  state_ = State::kRunning;
  return true;
}

void Cursor::Prepare() {
  is_limited_ = max_records_ > 0 && kind_.is_select && HasLimitClause(link_.GetDialect()) &&
                SQL_SUCCEEDED(link_.Prepare(Statement(), Limited(max_records_, 0)));
  if (!is_limited_) link_.Require(link_.Prepare(Statement(), text_), Statement(), text_);
  description_ = Describe(link_, Statement(), text_, is_updatable_);
}

std::string Cursor::Limited(std::int64_t rows, std::int64_t offset) const {
  std::string text(WithoutEnd(text_));
  text += "\nLIMIT " + std::to_string(rows);
  if (offset > 0) text += " OFFSET " + std::to_string(offset);
  return text;
}

/// Returns false when there is no limit that the text could be run with.
bool Cursor::RunLimited() {
  if (max_records_ == 0 || !kind_.is_select || !HasLimitClause(link_.GetDialect())) return false;
  SQLRETURN code = link_.Prepare(Statement(), Limited(max_records_, offset_));
  if (!SQL_SUCCEEDED(code)) return false;
  parameters_.Bind(link_, Statement(), text_);
  link_.Require(link_.ExecutePrepared(Statement()), Statement(), text_);
  AfterRun();
  return true;
}

void Cursor::Run(std::string_view text) {
  if (max_records_ > 0 && kind_.is_query && !HasLimitClause(link_.GetDialect())) {
    SQLSetStmtAttr(Statement(), SQL_ATTR_MAX_ROWS, AsPointer(static_cast<SQLULEN>(max_records_)),
                   SQL_IS_UINTEGER);
  }
  SQLRETURN code = SQL_SUCCESS;
  if (parameters_.Count() == 0) {
    code = link_.Execute(Statement(), text);
  } else {
    link_.Require(link_.Prepare(Statement(), text), Statement(), text_);
    parameters_.Bind(link_, Statement(), text_);
    code = link_.ExecutePrepared(Statement());
  }
  link_.Require(code, Statement(), text_);
  AfterRun();
}

void Cursor::AfterRun() {
  session_.Note(kind_);
  state_ = State::kRunning;
  const bool is_described = description_.columns && link_.GetDialect() != Dialect::kSqlite;
  if (!FindResultWithColumns()) {
    description_.columns = std::make_shared<const Columns>();
  } else if (!is_described) {
    description_ = Describe(link_, Statement(), text_, is_updatable_);
  }
}

/// A procedure may change data before it yields rows.
bool Cursor::FindResultWithColumns() {
  for (;;) {
    SQLLEN affected = -1;
    if (SQL_SUCCEEDED(SQLRowCount(Statement(), &affected))) rows_affected_ = affected;
    if (CountColumns(link_, Statement(), text_) > 0) return true;
    const SQLRETURN code = SQLMoreResults(Statement());
    if (code == SQL_NO_DATA) return false;
    link_.Require(code, Statement(), text_);
  }
}

bool Cursor::Skip(std::int64_t rows) {
  if (block_) return false;
  if (server_cursor_ || (state_ == State::kPrepared && is_limited_)) {
    offset_ += rows;
    return true;
  }
  return false;
}

bool Cursor::Step() {
  if (state_ == State::kDone) return false;
  if (state_ == State::kPrepared) {
    session_.Settle();
    if (is_limited_) {
      SQLFreeStmt(Statement(), SQL_CLOSE);
      const std::int64_t rows = std::max<std::int64_t>(max_records_ - offset_, 0);
      Run(Limited(rows, offset_));
    } else if (parameters_.Count() == 0) {
      link_.Require(link_.ExecutePrepared(Statement()), Statement(), text_);
      AfterRun();
    } else {
      parameters_.Bind(link_, Statement(), text_);
      link_.Require(link_.ExecutePrepared(Statement()), Statement(), text_);
      AfterRun();
    }
  }
  if (description_.columns->empty()) {
    Stop();
    return false;
  }
  if (++row_ >= block_rows_ && !NextBlock()) {
    Stop();
    return false;
  }
  if (packed_row_) packed_row_->Parse(block_->Text(row_));
  return true;
}

std::unique_ptr<RowBlock> Cursor::NewBlock() const {
  const bool is_packed = server_cursor_ && server_cursor_->IsPacked();
  return std::make_unique<RowBlock>(
      link_, Statement(), is_packed ? std::vector{kPackedReader} : description_.readers, max_records_);
}

/// Rows that the server cursor has sent already are passed over here, others there.
bool Cursor::NextBlock() {
  if (!block_) {
    block_ = NewBlock();
    if (server_cursor_ && server_cursor_->IsPacked()) packed_row_.emplace(description_.readers);
  }
  for (;;) {
    block_rows_ = block_->Fetch(text_);
    row_ = 0;
    if (block_rows_ > 0) {
      fetched_ += static_cast<std::int64_t>(block_rows_);
      if (!server_cursor_) return true;
      const auto passed = std::min(offset_, static_cast<std::int64_t>(block_rows_));
      offset_ -= passed;
      row_ = static_cast<std::size_t>(passed);
      if (offset_ == 0) ReadAhead();
      if (row_ < block_rows_) return true;
    } else if (!server_cursor_ || !FetchMore()) {
      return false;
    }
  }
}

void Cursor::ReadAhead() {
  if (server_cursor_->IsFetchingAhead()) return;
  if (statement_ahead_.Get() == nullptr) statement_ahead_ = link_.NewStatement();
  server_cursor_->FetchAhead(statement_ahead_.Get());
}

bool Cursor::FetchMore() {
  server_cursor_->SetFetched(fetched_);
  fetched_ = 0;
  server_cursor_->Skip(offset_);
  offset_ = 0;
  if (server_cursor_->IsFetchingAhead()) {
    SQLFreeStmt(Statement(), SQL_CLOSE);
    std::swap(statement_, statement_ahead_);
    std::swap(block_, block_ahead_);
    if (!block_) block_ = NewBlock();
  }
  return server_cursor_->Fetch(Statement());
}

void Cursor::Stop() noexcept {
  state_ = State::kDone;
  block_.reset();
  if (statement_.Get() != nullptr) SQLFreeStmt(Statement(), SQL_CLOSE);
  if (server_cursor_) server_cursor_->Close();
  block_ahead_.reset();
  statement_ahead_.Reset();
}

const BaseTable& Cursor::Table() {
  if (!table_) table_ = FindBaseTable(link_, *description_.columns, text_);
  return *table_;
}

}  // namespace dralo::database::odbc
