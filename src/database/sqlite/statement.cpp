#include "database/sqlite/statement.h"

#include <utility>

#include "database/sqlite/base_table.h"
#include "database/sqlite/description.h"
#include "database/sqlite/error.h"
#include "database/sqlite/plan.h"
#include "database/statement_text.h"
#include "dralo/error.h"

namespace dralo::database::sqlite {

namespace {

/// Named parameters: if they are missing, the text has hidden them, as an open comment does.
constexpr std::string_view kLimit = "\nLIMIT :dralo_limit OFFSET :dralo_offset";
constexpr std::string_view kLimitParameter = ":dralo_limit";
constexpr int kLimitParameters = 2;

/// Measured: with 100,000 rows both ways to sort take the same time at about this limit, with more rows at a
/// higher one.
constexpr std::int64_t kMaxSortedRecords = 8000;

/// Calls SQLite with a text that is followed by a zero byte, which saves SQLite a copy. `rest` becomes what
/// follows the first statement.
int PrepareHandle(sqlite3* connection, const std::string& text, sqlite3_stmt** handle,
                  std::string_view& rest) {
  const char* tail = nullptr;
  const int code = sqlite3_prepare_v3(connection, text.c_str(), static_cast<int>(text.size() + 1),
                                      SQLITE_PREPARE_PERSISTENT, handle, &tail);
  if (tail) rest = std::string_view(text).substr(static_cast<std::size_t>(tail - text.c_str()));
  return code;
}

bool HasLimit(sqlite3_stmt* handle) {
  const int index = sqlite3_bind_parameter_count(handle) - 1;
  const char* name = index > 0 ? sqlite3_bind_parameter_name(handle, index) : nullptr;
  return name && name == kLimitParameter;
}

}  // namespace

Statement::Statement(HandlePtr handle, std::string text, Form form)
    : handle_(std::move(handle)),
      text_(std::move(text)),
      form_(form),
      description_(sqlite::Describe(handle_.get())) {}

std::unique_ptr<Statement> Statement::Prepare(sqlite3* connection, std::string_view text) {
  RequireStatement(text);
  std::string copy(text);
  sqlite3_stmt* handle = nullptr;
  std::string_view rest;
  const int code = PrepareHandle(connection, copy, &handle, rest);
  HandlePtr owned(handle);
  if (code != SQLITE_OK) ThrowError(connection, text);
  if (!owned) throw platform::Error("The statement is empty", 0, {}, copy);
  if (!WithoutFront(rest, ';').empty()) {
    throw platform::Error("The text has more than one statement; run them one by one", 0, {}, copy);
  }
  return std::unique_ptr<Statement>(new Statement(std::move(owned), std::move(copy), Form::kPlain));
}

std::unique_ptr<Statement> Statement::PrepareLimited(sqlite3* connection, std::string_view text) {
  if (text.find('\0') != text.npos) return nullptr;
  const std::string limited = std::string(WithoutEnd(text)).append(kLimit);
  sqlite3_stmt* handle = nullptr;
  std::string_view rest;
  const int code = PrepareHandle(connection, limited, &handle, rest);
  HandlePtr owned(handle);
  if ((code & 0xFF) == SQLITE_ERROR) return nullptr;
  if (code != SQLITE_OK) ThrowError(connection, text);
  const bool is_same = owned && HasLimit(owned.get()) && sqlite3_stmt_readonly(owned.get()) &&
                       !sqlite3_stmt_isexplain(owned.get());
  if (!is_same) return nullptr;
  return std::unique_ptr<Statement>(new Statement(std::move(owned), std::string(text), Form::kLimited));
}

int Statement::ParameterCount() const {
  return sqlite3_bind_parameter_count(Handle()) - (form_ == Form::kLimited ? kLimitParameters : 0);
}

void Statement::BindLimit(std::int64_t rows, std::int64_t offset) {
  sqlite3_bind_int64(Handle(), ParameterCount() + 1, rows);
  sqlite3_bind_int64(Handle(), ParameterCount() + 2, offset);
}

void Statement::Refresh() {
  if (PreparedAgain(Handle()) == description_.prepared_again) return;
  description_ = sqlite::Describe(Handle());
  table_.reset();
}

const BaseTable& Statement::Table() {
  if (!table_) table_ = FindBaseTable(sqlite3_db_handle(Handle()), *description_.columns, text_);
  return *table_;
}

bool Statement::PaysOff(std::int64_t max_records) const {
  const bool is_low = max_records > 0 && max_records <= kMaxSortedRecords;
  return is_low || !SortsAllRows(sqlite3_db_handle(Handle()), text_);
}

void Statement::Reset() noexcept {
  sqlite3_reset(Handle());
  sqlite3_clear_bindings(Handle());
}

}  // namespace dralo::database::sqlite
