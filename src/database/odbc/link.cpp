#include "database/odbc/link.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <array>
#include <mutex>

#include "database/odbc/error.h"
#include "database/odbc/wide_text.h"
#include "database/process_id.h"
#include "database/statement_text.h"
#include "dralo/error.h"

namespace dralo::database::odbc {

namespace {

/// The driver manager's environment of this process. One that was inherited by fork() is left alone.
SQLHENV Environment() {
  static std::mutex mutex;
  static SQLHENV environment = SQL_NULL_HENV;
  static pid_t process = 0;
  const std::lock_guard lock(mutex);
  if (process == ProcessId()) return environment;
  SQLHENV fresh = SQL_NULL_HENV;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &fresh))) {
    throw platform::Error("The ODBC driver manager does not start");
  }
  SQLSetEnvAttr(fresh, SQL_ATTR_ODBC_VERSION, AsPointer(SQL_OV_ODBC3), 0);
  environment = fresh;
  process = ProcessId();
  return environment;
}

SQLWCHAR* Units(std::u16string& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }

}  // namespace

Link::Link(const Options& options)
    : secrets_(options.secrets), query_timeout_s_(static_cast<SQLULEN>(options.query_timeout_s)) {
  SQLHANDLE handle = SQL_NULL_HANDLE;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, Environment(), &handle))) {
    throw platform::Error("The ODBC driver manager gives no connection");
  }
  handle_ = ConnectionHandle(handle);
  Connect(options);
  try {
    LearnFacts();
  } catch (...) {
    SQLDisconnect(Handle());
    throw;
  }
}

Link::~Link() { SQLDisconnect(Handle()); }

void Link::Connect(const Options& options) {
  const auto timeout = static_cast<SQLULEN>(options.connect_timeout_s);
  SQLSetConnectAttr(Handle(), SQL_ATTR_LOGIN_TIMEOUT, AsPointer(timeout), SQL_IS_UINTEGER);
  std::u16string wide = ToWide(options.text);
  const SQLRETURN code =
      SQLDriverConnectW(Handle(), nullptr, Units(wide), static_cast<SQLSMALLINT>(wide.size()), nullptr, 0,
                        nullptr, SQL_DRIVER_NOPROMPT);
  if (SQL_SUCCEEDED(code)) return;
  const auto error = Failure();
  throw platform::Error("The database cannot be opened: " + std::string(error.Description()), error.Number(),
                        error.SqlState());
}

void Link::LearnFacts() {
  dialect_ = &DialectOf(InfoText(SQL_DBMS_NAME));
  name_quote_ = InfoText(SQL_IDENTIFIER_QUOTE_CHAR);
  if (name_quote_ == " ") name_quote_.clear();
  has_schemas_ = InfoNumber(SQL_SCHEMA_USAGE) != 0;
  if (query_timeout_s_ > 0 && !dialect_->time_limit.empty())
    Run(Filled(dialect_->time_limit, '#', std::to_string(query_timeout_s_)));
}

StatementHandle Link::NewStatement() const {
  SQLHANDLE handle = SQL_NULL_HANDLE;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, Handle(), &handle))) {
    throw Failure();
  }
  if (query_timeout_s_ > 0)
    SQLSetStmtAttr(handle, SQL_ATTR_QUERY_TIMEOUT, AsPointer(query_timeout_s_), SQL_IS_UINTEGER);
  return StatementHandle(handle);
}

SQLRETURN Link::Execute(SQLHSTMT statement, std::string_view text) const {
  std::u16string wide = ToWide(text);
  return SQLExecDirectW(statement, Units(wide), static_cast<SQLINTEGER>(wide.size()));
}

SQLRETURN Link::Prepare(SQLHSTMT statement, std::string_view text) const {
  std::u16string wide = ToWide(text);
  return SQLPrepareW(statement, Units(wide), static_cast<SQLINTEGER>(wide.size()));
}

SQLRETURN Link::ExecutePrepared(SQLHSTMT statement) const { return SQLExecute(statement); }

void Link::Run(std::string_view text) const {
  const StatementHandle statement = NewStatement();
  Require(Execute(statement.Get(), text), statement.Get(), text);
}

std::int64_t Link::AskNumber(std::string_view text) const {
  const StatementHandle statement = NewStatement();
  Require(Execute(statement.Get(), text), statement.Get(), text);
  SQLBIGINT number = 0;
  SQLLEN indicator = SQL_NULL_DATA;
  const bool has_row = SQLFetch(statement.Get()) == SQL_SUCCESS &&
                       SQL_SUCCEEDED(SQLGetData(statement.Get(), 1, SQL_C_SBIGINT, &number, 0, &indicator));
  if (!has_row || indicator == SQL_NULL_DATA)
    throw platform::Error("The database gives no number", 0, {}, std::string(text));
  return number;
}

void Link::Throw(SQLHSTMT statement, std::string_view text) const {
  throw MakeError(SQL_HANDLE_STMT, statement, text, secrets_);
}

platform::Error Link::Failure() const { return MakeError(SQL_HANDLE_DBC, Handle(), {}, secrets_); }

bool Link::IsDead() const {
  SQLUINTEGER is_dead = SQL_CD_FALSE;
  SQLGetConnectAttr(Handle(), SQL_ATTR_CONNECTION_DEAD, &is_dead, SQL_IS_UINTEGER, nullptr);
  return is_dead != SQL_CD_FALSE;
}

std::string Link::InfoText(SQLUSMALLINT what) const {
  std::array<char, 256> text{};
  SQLSMALLINT size = 0;
  if (!SQL_SUCCEEDED(SQLGetInfo(Handle(), what, text.data(), static_cast<SQLSMALLINT>(text.size()), &size)))
    return {};
  return text.data();
}

SQLUINTEGER Link::InfoNumber(SQLUSMALLINT what) const {
  SQLUINTEGER number = 0;
  SQLGetInfo(Handle(), what, &number, sizeof number, nullptr);
  return number;
}

}  // namespace dralo::database::odbc
