#include "database/odbc/cursor.h"

#include <sqlext.h>

#include <algorithm>
#include <utility>

#include "database/odbc/base_table.h"
#include "database/statement_text.h"
#include "dralo/error.h"

namespace dralo::database::odbc {

namespace {

using platform::Error;

/// After several statements a limit would apply only to the last.
bool IsOneStatement(std::string_view text) { return WithoutEnd(text).find(';') == text.npos; }

/// Whether the database says that a statement was prepared for other tables than there are now, or is gone.
bool IsStale(const Error& error) {
  constexpr std::string_view kStates[] = {"0A000", "26000"};
  return std::ranges::find(kStates, error.SqlState()) != std::end(kStates);
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
  if (kind_.is_query) {
    OpenQuery();
  } else {
    OpenChange();
  }
  RequireEqualCounts(statement_->parameters, parameters_.Count(), text_);
  const bool may_be_in_part = max_records_ > 0 || is_updatable_;
  if (!kind_.is_query || !may_be_in_part) Execute();
}

Cursor::~Cursor() { Stop(); }

/// A query for changes needs its columns as they are now, and the tables that they come from.
void Cursor::OpenQuery() {
  const bool is_limited =
      max_records_ > 0 && kind_.is_select && !link_.GetDialect().limit.empty() && IsOneStatement(text_);
  if (!is_updatable_) statement_ = session_.Statements().Take(text_, is_limited);
  was_kept_ = statement_ != nullptr;
  if (!statement_ && is_limited) statement_ = TryLimited();
  if (!statement_) {
    statement_ = Prepared(false);
    statement_->refuses_limit = is_limited;
  }
  description_ = statement_->description;
}

/// Throws platform::Error when the statement is not accepted.
std::unique_ptr<Statement> Cursor::Prepared(bool is_limited) {
  auto statement = std::make_unique<Statement>(Statement{.handle = link_.NewStatement(), .text = text_});
  statement->is_limited = is_limited;
  statement->is_prepared = true;
  const SQLHSTMT handle = statement->handle.Get();
  const std::string limited =
      is_limited ? std::string(WithoutEnd(text_)).append(link_.GetDialect().limit) : text_;
  SQLSMALLINT parameters = 0;
  link_.Require(link_.Prepare(handle, limited), handle, text_);
  link_.Require(SQLNumParams(handle, &parameters), handle, text_);
  statement->parameters = static_cast<std::size_t>(parameters);
  if (is_limited) statement->parameters -= std::min<std::size_t>(2, statement->parameters);
  if (kind_.is_query) statement->description = Describe(link_, handle, text_, is_updatable_);
  return statement;
}

/// Nothing when the limit is refused; running the unchanged text then shows whether that itself is wrong. A
/// text that ends in an open comment hides the limit.
std::unique_ptr<Statement> Cursor::TryLimited() {
  try {
    auto statement = Prepared(true);
    return statement->parameters == parameters_.Count() ? std::move(statement) : nullptr;
  } catch (const Error&) {
    return nullptr;
  }
}

/// Some statements cannot be prepared. Only a text with a "?" may have parameters; the driver knows which "?"
/// is one.
void Cursor::OpenChange() {
  const bool may_have_parameters = text_.find('?') != text_.npos;
  statement_ = may_have_parameters
                   ? Prepared(false)
                   : std::make_unique<Statement>(Statement{.handle = link_.NewStatement(), .text = text_});
}

void Cursor::Execute() {
  try {
    Run();
  } catch (const Error& error) {
    if (!was_kept_ || !IsStale(error)) throw;
    session_.Statements().Forget(text_);
    OpenQuery();
    Run();
  }
  session_.Note(kind_);
  state_ = State::kRunning;
  AdoptColumns();
}

void Cursor::Run() {
  const SQLHSTMT handle = Handle();
  std::vector<platform::Variant> limit;
  if (statement_->is_limited) limit = {std::max<std::int64_t>(max_records_ - offset_, 0), offset_};
  // Set even when all rows are wanted: a statement from the cache has the limit of its last run.
  if (kind_.is_query) {
    const auto rows = static_cast<SQLULEN>(statement_->is_limited ? 0 : max_records_);
    SQLSetStmtAttr(handle, SQL_ATTR_MAX_ROWS, AsPointer(rows), SQL_IS_UINTEGER);
  }
  parameters_.Bind(link_, handle, text_, limit);
  link_.Require(statement_->is_prepared ? link_.ExecutePrepared(handle) : link_.Execute(handle, text_),
                handle, text_);
}

/// The tables may have changed since the statement was prepared, and some drivers know the types of
/// expressions only now.
void Cursor::AdoptColumns() {
  if (!FindResultWithColumns()) {
    description_.columns = std::make_shared<const Columns>();
    return;
  }
  Description now = Describe(link_, Handle(), text_, is_updatable_);
  if (description_.columns && *description_.columns == *now.columns) return;
  description_ = std::move(now);
  statement_->description = description_;
}

/// A procedure may change data before it yields rows.
bool Cursor::FindResultWithColumns() {
  for (;;) {
    SQLLEN affected = -1;
    if (SQL_SUCCEEDED(SQLRowCount(Handle(), &affected))) rows_affected_ = affected;
    if (CountColumns(link_, Handle(), text_) > 0) return true;
    const SQLRETURN code = SQLMoreResults(Handle());
    if (code == SQL_NO_DATA) return false;
    link_.Require(code, Handle(), text_);
  }
}

bool Cursor::Skip(std::int64_t rows) {
  if (state_ != State::kPrepared || !statement_->is_limited) return false;
  offset_ += rows;
  return true;
}

bool Cursor::Step() {
  if (state_ == State::kDone) return false;
  if (state_ == State::kPrepared) Execute();
  if (!description_.columns->empty() && NextRow()) return true;
  Stop();
  return false;
}

bool Cursor::NextRow() {
  if (!row_) row_.emplace(link_, Handle(), description_.readings);
  return row_->Fetch(text_);
}

void Cursor::Stop() noexcept {
  state_ = State::kDone;
  row_.reset();
  if (!statement_) return;
  const bool is_closed = SQL_SUCCEEDED(SQLFreeStmt(Handle(), SQL_CLOSE));
  SQLFreeStmt(Handle(), SQL_RESET_PARAMS);
  const bool may_be_kept = kind_.is_select && !is_updatable_ && link_.GetDialect().notices_changes;
  if (is_closed && may_be_kept) session_.Statements().Give(std::move(statement_));
  statement_.reset();
}

const BaseTable& Cursor::Table() {
  if (!table_) table_ = FindBaseTable(link_, *description_.columns, text_);
  return *table_;
}

}  // namespace dralo::database::odbc
