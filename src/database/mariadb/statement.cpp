#include "database/mariadb/statement.h"

#include <utility>

namespace dralo::database::mariadb {

namespace {

using platform::Error;

constexpr int kCannotBePrepared = 1295;

/// The tables were changed since the statement was prepared, in ways that the server or the library cannot
/// follow by itself.
constexpr int kMustBePreparedAgain = 1615;
constexpr int kHasOtherColumns = 2057;

std::array<unsigned long, 3> TypeOf(const MYSQL_FIELD& field) {
  return {static_cast<unsigned long>(field.type), field.length, field.flags};
}

}  // namespace

Statement::Statement(Link& link, std::string_view text, Form form, std::string sql)
    : link_(link), generation_(link.Generation()), text_(text), form_(form), sql_(std::move(sql)) {
  try {
    Prepare();
  } catch (const Error& error) {
    if (error.Number() != kCannotBePrepared) throw;
    handle_.reset();
  }
}

/// The library discards rows only when the server has to be told.
Statement::~Statement() {
  if (handle_ && IsOfThisConnection()) link_.PutReadAside();
}

void Statement::Prepare() {
  RequireConnection();
  handle_.reset(library_.mysql_stmt_init(link_.Handle()));
  if (!handle_) throw link_.LastError(text_);
  const int failure = link_.Await(library_.mysql_stmt_prepare_start, library_.mysql_stmt_prepare_cont,
                                  handle_.get(), sql_.data(), sql_.size());
  if (failure != 0) Throw();
  parameter_count_ = library_.mysql_stmt_param_count(handle_.get());
  const std::unique_ptr<MYSQL_RES, ResultCloser> result(library_.mysql_stmt_result_metadata(handle_.get()));
  if (result) {
    DescribeResult(library_.mysql_fetch_fields(result.get()), library_.mysql_num_fields(result.get()));
  }
}

/// A failure while rows are fetched is reported only by the connection.
void Statement::Throw() {
  MYSQL_STMT* const handle = handle_.get();
  if (library_.mysql_stmt_errno(handle) == 0) throw link_.LastError(text_);
  throw link_.MakeError(library_.mysql_stmt_errno(handle), library_.mysql_stmt_sqlstate(handle),
                        library_.mysql_stmt_error(handle), text_);
}

void Statement::RequireConnection() const {
  if (!IsOfThisConnection() || link_.Handle() == nullptr) {
    throw Error("The connection to the database is closed", 2006, "08003", text_);
  }
}

void Statement::DescribeResult(const MYSQL_FIELD* fields, unsigned count) {
  description_ = mariadb::Describe(fields, count, false);
  described_types_.clear();
  for (unsigned i = 0; i < count; ++i) described_types_.push_back(TypeOf(fields[i]));
}

bool Statement::IsDescribed(const MYSQL_FIELD* fields, unsigned count) const {
  if (count != described_types_.size()) return false;
  for (unsigned i = 0; i < count; ++i) {
    if (fields[i].name != (*description_.columns)[i].name || TypeOf(fields[i]) != described_types_[i])
      return false;
  }
  return true;
}

void Statement::Execute(MYSQL_BIND* parameters) {
  RequireConnection();
  if (!handle_) return ExecuteText();
  try {
    ExecutePrepared(parameters);
  } catch (const Error& error) {
    if (error.Number() != kMustBePreparedAgain && error.Number() != kHasOtherColumns) throw;
    if (error.Number() == kHasOtherColumns) FreeResult();  // Or its end is waited for without a limit.
    Prepare();
    ExecutePrepared(parameters);
  }
}

void Statement::ExecutePrepared(MYSQL_BIND* parameters) {
  MYSQL_STMT* const handle = handle_.get();
  if (parameter_count_ > 0 && library_.mysql_stmt_bind_param(handle, parameters) != 0) Throw();
  const int failure =
      link_.Await(library_.mysql_stmt_execute_start, library_.mysql_stmt_execute_cont, handle);
  if (failure != 0) Throw();
  is_open_ = true;
  FindResultWithColumns();
}

/// A procedure may change data before it yields rows. Once a statement runs, the connection has the fields
/// that the tables have now; the statement's own are from its preparation.
void Statement::FindResultWithColumns() {
  for (;;) {
    rows_affected_ = static_cast<std::int64_t>(library_.mysql_stmt_affected_rows(handle_.get()));
    last_identity_ = static_cast<std::int64_t>(library_.mysql_stmt_insert_id(handle_.get()));
    const unsigned columns = library_.mysql_stmt_field_count(handle_.get());
    if (columns > 0) {
      rows_affected_ = -1;
      const MYSQL& connection = *link_.Handle();
      if (!IsDescribed(connection.fields, columns)) DescribeResult(connection.fields, columns);
      return;
    }
    if (!NextResult()) {
      is_open_ = false;
      return;
    }
  }
}

bool Statement::NextResult() {
  if (library_.mysql_stmt_more_results(handle_.get()) == 0) return false;
  const int answer =
      link_.Await(library_.mysql_stmt_next_result_start, library_.mysql_stmt_next_result_cont, handle_.get());
  if (answer > 0) Throw();
  return answer == 0;
}

/// Statements that cannot be prepared yield few rows, so all are read at once.
void Statement::ExecuteText() {
  link_.Run(sql_, text_);
  MYSQL_RES* const result =
      link_.Await(library_.mysql_store_result_start, library_.mysql_store_result_cont, link_.Handle());
  texts_.reset(result);
  rows_affected_ = -1;
  if (texts_) {
    description_ =
        mariadb::Describe(library_.mysql_fetch_fields(result), library_.mysql_num_fields(result), true);
    is_open_ = true;
  } else {
    if (library_.mysql_errno(link_.Handle()) != 0) throw link_.LastError(text_);
    rows_affected_ = static_cast<std::int64_t>(library_.mysql_affected_rows(link_.Handle()));
    last_identity_ = static_cast<std::int64_t>(library_.mysql_insert_id(link_.Handle()));
  }
}

void Statement::Bind(Row& row) {
  if (handle_) row.Bind(handle_.get());
}

bool Statement::Fetch(Row& row) {
  if (!is_open_) return false;
  if (!handle_) {
    const MYSQL_ROW texts = library_.mysql_fetch_row(texts_.get());
    if (texts != nullptr) row.SetTexts(texts, library_.mysql_fetch_lengths(texts_.get()));
    is_open_ = texts != nullptr;
    return is_open_;
  }
  RequireConnection();
  const int answer =
      link_.Await(library_.mysql_stmt_fetch_start, library_.mysql_stmt_fetch_cont, handle_.get());
  if (answer == 0) [[likely]]
    return true;
  if (answer == MYSQL_DATA_TRUNCATED) {
    row.ReadCutValues(handle_.get());
    return true;
  }
  if (answer != MYSQL_NO_DATA) {
    is_open_ = false;
    Throw();
  }
  Finish();
  return false;
}

void Statement::Finish() {
  if (!std::exchange(is_open_, false)) return;
  texts_.reset();
  if (!handle_ || !IsOfThisConnection() || link_.Handle() == nullptr) return;
  FreeResult();
  while (NextResult()) FreeResult();
}

/// Libraries from 3.4 on refuse to free the end of a procedure, which has no rows.
void Statement::FreeResult() {
  if (library_.mysql_stmt_field_count(handle_.get()) == 0) return;
  const my_bool failure =
      link_.Await(library_.mysql_stmt_free_result_start, library_.mysql_stmt_free_result_cont, handle_.get());
  if (failure != 0) Throw();
}

}  // namespace dralo::database::mariadb
