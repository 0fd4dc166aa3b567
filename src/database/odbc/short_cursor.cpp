#include "database/odbc/short_cursor.h"

#include <sqlext.h>

#include <algorithm>
#include <utility>

#include "database/odbc/base_table.h"
#include "database/odbc/cursor.h"
#include "database/odbc/error.h"
#include "database/odbc/page_statement.h"
#include "database/odbc/row_packing.h"
#include "dralo/error.h"

namespace dralo::database::odbc {

namespace {

constexpr std::int64_t kMaxShortRows = 256;

/// A page that is longer is fetched in pieces.
constexpr Reader kPageReader{Reading::kText, 16'384, false};

/// The states of PostgreSQL when a statement was prepared for columns that are other or fewer ones now, is
/// gone, or, behind a pooler, belongs to somebody else; and when the rows are too large to come as one value.
constexpr std::string_view kUnprepared[] = {"0A000", "42P10", "26000", "42P05", "54000", "53200"};

}  // namespace

std::unique_ptr<database::Cursor> ShortCursor::Open(Session& session, const Query& query) {
  const bool may_be_short = session.GetLink().GetDialect() == Dialect::kPostgreSql && query.max_records > 0 &&
                            query.parameters.empty() && !query.is_updatable &&
                            query.text.find_first_of(std::string_view("?\0", 2)) == query.text.npos;
  if (!may_be_short) return nullptr;
  std::unique_ptr<ShortCursor> cursor(new ShortCursor(session, query));
  if (!session.IsInTransaction()) cursor->known_ = session.Statements().Find(query.text);
  if (!cursor->known_) {
    const StatementKind kind = KindOf(query.text);
    if (!kind.is_select) return nullptr;
    if (kind.calls_functions) session.RunDeferred();
    const bool is_accepted = session.Reconnecting(query.text, [&] {
      return query.max_records > kMaxShortRows ? cursor->Learn() : cursor->RunDirectly();
    });
    if (!is_accepted) return nullptr;
  }
  if (cursor->state_ == State::kKnown) cursor->Defer();
  return cursor;
}

ShortCursor::~ShortCursor() { Stop(); }

/// Returns false, and has done nothing, when the query cannot stand in another one, or is wrong.
bool ShortCursor::Accepts(const std::string& text) {
  session_.Settle();
  const Link& link = session_.GetLink();
  const Deadline deadline = link.Limit();
  StatementHandle statement = link.NewStatement();
  const SQLRETURN code = link.Execute(statement.Get(), text);
  if (!SQL_SUCCEEDED(code) && code != SQL_NO_DATA) {
    const platform::Error error = link.ErrorOf(statement.Get(), text_);
    if (IsRefusalOfPostgreSql(error)) return false;
    throw error;
  }
  known_ = std::make_shared<const KnownQuery>(
      KnownQuery{KindOf(text_), Describe(link, statement.Get(), text_, false)});
  // The columns of tables that the user's transaction changed may change back.
  if (!session_.IsInTransaction()) session_.Statements().Remember(text_, known_);
  session_.Note(known_->kind);
  statement_ = std::move(statement);
  return true;
}

/// How many rows are wanted turns out later. Returns what Accepts() does.
bool ShortCursor::Learn() {
  is_new_ = true;
  return Accepts(NoRowStatement(text_));
}

/// Returns what Accepts() does.
bool ShortCursor::RunDirectly() {
  const bool is_accepted = Accepts(
      IsOneRow() ? OneRowStatement(text_)
                 : PageStatement(text_, std::to_string(max_records_ - offset_), std::to_string(offset_)));
  if (is_accepted) state_ = State::kRunning;
  return is_accepted;
}

/// Whether the statement that was just prepared has the columns that are known. For types that it does not
/// know the driver guesses the size by the values, of which there are none yet.
bool ShortCursor::HasKnownColumns(SQLHSTMT statement) const {
  const SQLUSMALLINT first = IsOneRow() ? 1 : 2;
  const Description other = Describe(session_.GetLink(), statement, text_, false, first);
  const Description& known = known_->description;
  return std::ranges::equal(*other.columns, *known.columns, {}, &Column::name, &Column::name) &&
         std::ranges::equal(other.readers, known.readers, {}, &Reader::reading, &Reader::reading);
}

/// An empty handle when what is known of the query is out of date.
StatementHandle ShortCursor::Prepared() const {
  StatementHandle statement = session_.Statements().Take(text_, Yield());
  if (statement.Get() != nullptr) return statement;
  const Link& link = session_.GetLink();
  const std::string text =
      IsOneRow() ? OneRowStatement(text_) : PackedPageStatement(text_, known_->description.columns->size());
  statement = link.NewStatement();
  link.Require(link.Prepare(statement.Get(), text), statement.Get(), text_);
  if (!HasKnownColumns(statement.Get())) statement.Reset();
  return statement;
}

void ShortCursor::BindNumbers(SQLHSTMT statement) {
  if (IsOneRow()) return;
  rows_parameter_ = max_records_ - offset_;
  offset_parameter_ = offset_;
  SQLUSMALLINT number = 0;
  for (SQLBIGINT* const value : {&rows_parameter_, &offset_parameter_}) {
    const SQLRETURN code = SQLBindParameter(statement, ++number, SQL_PARAM_INPUT, SQL_C_SBIGINT, SQL_BIGINT,
                                            19, 0, value, 0, nullptr);
    session_.GetLink().Require(code, statement, text_);
  }
}

/// Returns false when what is known of the query is out of date, or its page too large for one value.
bool ShortCursor::RunPrepared() {
  session_.Settle();
  const Link& link = session_.GetLink();
  const Deadline deadline = link.Limit();
  try {
    StatementHandle statement = Prepared();
    if (statement.Get() == nullptr) return false;
    BindNumbers(statement.Get());
    link.Require(link.ExecutePrepared(statement.Get()), statement.Get(), text_);
    statement_ = std::move(statement);
  } catch (const platform::Error& error) {
    session_.Statements().Forget(text_);
    if (std::ranges::find(kUnprepared, error.SqlState()) == std::end(kUnprepared)) throw;
    return false;
  }
  session_.Note(known_->kind);
  is_prepared_ = true;
  state_ = State::kRunning;
  return true;
}

/// A query that is known may have become one that is refused.
void ShortCursor::Run() {
  const bool came_before =
      !is_new_ && !session_.IsInTransaction() && session_.Statements().Find(text_) == known_;
  const std::size_t columns = known_->description.columns->size();
  const bool is_packable = IsOneRow() || (0 < columns && columns <= kMaxPackedColumns);
  const bool may_prepare = came_before && is_packable && session_.GetLink().KeepsPrepared();
  if (may_prepare && RunPrepared()) return;
  if (!RunDirectly()) OpenLongCursor();
}

void ShortCursor::OpenLongCursor() {
  long_cursor_ = std::make_unique<odbc::Cursor>(session_, Query{.text = text_, .max_records = max_records_});
  if (offset_ > 0) long_cursor_->Skip(offset_);
  state_ = State::kRunning;
}

/// Functions may do something, so it is not left to the reader of the rows whether they are called.
void ShortCursor::Defer() {
  if (known_->kind.calls_functions) {
    session_.RunDeferred();
    return Start();
  }
  session_.Defer(*this);
}

void ShortCursor::Start() {
  const std::int64_t rows = max_records_ - offset_;
  if (rows <= 0) {
    state_ = State::kDone;
  } else if (rows > kMaxShortRows) {
    session_.Reconnecting(text_, [&] { OpenLongCursor(); });
  } else {
    session_.Reconnecting(text_, [&] { Run(); });
    offset_ = 0;
  }
  session_.Undefer(*this);
}

void ShortCursor::FixColumns() {
  if (state_ == State::kKnown) Start();
}

bool ShortCursor::Skip(std::int64_t rows) {
  if (long_cursor_) return long_cursor_->Skip(rows);
  if (block_ || state_ == State::kDone) return false;
  offset_ += rows;
  return true;
}

bool ShortCursor::Step() {
  if (state_ == State::kKnown) Start();
  if (long_cursor_) return long_cursor_->Step();
  if (state_ == State::kDone) return false;
  if (!block_) MakeBlock();
  // Rows that were asked for before it was known that they are not wanted.
  for (; offset_ > 0 && NextRow(); --offset_) {
  }
  if (offset_ == 0 && NextRow()) return true;
  Stop();
  return false;
}

void ShortCursor::MakeBlock() {
  const std::vector<Reader>& readers = known_->description.readers;
  const bool is_packed = is_prepared_ && !IsOneRow();
  block_ = std::make_unique<RowBlock>(session_.GetLink(), statement_.Get(),
                                      is_packed ? std::vector{kPageReader} : readers,
                                      is_packed ? 1 : max_records_);
  if (!is_packed) return;
  packed_row_.emplace(readers);
  block_->Fetch(text_);
  rest_ = block_->Text(0);
}

bool ShortCursor::NextRow() {
  if (packed_row_) {
    if (rest_.empty()) return false;
    rest_ = packed_row_->Parse(rest_);
    return true;
  }
  if (++row_ < block_rows_) return true;
  block_rows_ = block_->Fetch(text_);
  row_ = 0;
  return block_rows_ > 0;
}

void ShortCursor::Stop() noexcept {
  session_.Undefer(*this);
  state_ = State::kDone;
  block_.reset();
  if (long_cursor_) long_cursor_->Stop();
  if (statement_.Get() == nullptr) return;
  if (is_prepared_ && SQL_SUCCEEDED(SQLFreeStmt(statement_.Get(), SQL_CLOSE)))
    session_.Statements().Keep(text_, Yield(), std::move(statement_));
  statement_.Reset();
}

const BaseTable& ShortCursor::Table() {
  if (!table_) table_ = FindBaseTable(session_.GetLink(), *GetColumns(), text_);
  return *table_;
}

}  // namespace dralo::database::odbc
