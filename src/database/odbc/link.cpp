#include "database/odbc/link.h"

#include <sqlext.h>
#include <sqlucode.h>
#include <sys/stat.h>

#include <array>
#include <mutex>

#include "database/odbc/error.h"
#include "database/odbc/wide_text.h"
#include "database/process_id.h"
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

/// 0 when there is no such file.
ino_t FileNumber(const std::string& file) {
  struct stat status {};
  return stat(file.c_str(), &status) == 0 ? status.st_ino : 0;
}

SQLWCHAR* Units(std::u16string& text) { return reinterpret_cast<SQLWCHAR*>(text.data()); }

SQLCHAR* Bytes(std::string_view text) {
  return const_cast<SQLCHAR*>(reinterpret_cast<const SQLCHAR*>(text.data()));  // Only read by ODBC.
}

}  // namespace

Link::Link(const Options& options)
    : secrets_(options.secrets),
      file_(options.file),
      is_narrow_(options.driver == Dialect::kSqlite),
      query_timeout_s_(static_cast<SQLULEN>(options.query_timeout_s)) {
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

/// The SQLite driver loses characters above U+FFFF in UTF-16, so it is spoken to in UTF-8.
void Link::Connect(const Options& options) {
  const auto timeout = static_cast<SQLULEN>(options.connect_timeout_s);
  SQLSetConnectAttr(Handle(), SQL_ATTR_LOGIN_TIMEOUT, AsPointer(timeout), SQL_IS_UINTEGER);
  SQLRETURN code = SQL_SUCCESS;
  if (is_narrow_) {
    code = SQLDriverConnect(Handle(), nullptr, Bytes(options.text), SQL_NTS, nullptr, 0, nullptr,
                            SQL_DRIVER_NOPROMPT);
  } else {
    std::u16string wide = ToWide(options.text);
    code = SQLDriverConnectW(Handle(), nullptr, Units(wide), static_cast<SQLSMALLINT>(wide.size()), nullptr,
                             0, nullptr, SQL_DRIVER_NOPROMPT);
  }
  if (SQL_SUCCEEDED(code)) return;
  const auto error = MakeError(SQL_HANDLE_DBC, Handle(), {}, secrets_);
  throw platform::Error("The database cannot be opened: " + std::string(error.Description()), error.Number(),
                        error.SqlState());
}

bool Link::HasItsFile() const { return file_.empty() || FileNumber(file_) == file_number_; }

void Link::LearnFacts() {
  if (!file_.empty()) file_number_ = FileNumber(file_);
  dialect_ = DialectOf(InfoText(SQL_DBMS_NAME));
  name_quote_ = InfoText(SQL_IDENTIFIER_QUOTE_CHAR);
  if (name_quote_ == " ") name_quote_.clear();
  SQLGetInfo(Handle(), SQL_GETDATA_EXTENSIONS, &reading_, sizeof reading_, nullptr);
  // MariaDB's driver takes the limit of statements and does not keep it.
  if (dialect_ == Dialect::kMariaDb && query_timeout_s_ > 0)
    Run("SET SESSION max_statement_time=" + std::to_string(query_timeout_s_));
}

/// libmaodbc 3.1 says that it can, but positions only on the first row.
bool Link::ReadsCellsOfBlocks() const {
  constexpr SQLUINTEGER needed = SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER | SQL_GD_BLOCK | SQL_GD_BOUND;
  return dialect_ == Dialect::kPostgreSql && (reading_ & needed) == needed;
}

bool Link::ReadsCellsInAnyOrder() const {
  constexpr SQLUINTEGER needed = SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER;
  return (reading_ & needed) == needed;
}

StatementHandle Link::NewStatement() const {
  SQLHANDLE handle = SQL_NULL_HANDLE;
  if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, Handle(), &handle))) {
    throw MakeError(SQL_HANDLE_DBC, Handle(), {}, secrets_);
  }
  if (query_timeout_s_ > 0)
    SQLSetStmtAttr(handle, SQL_ATTR_QUERY_TIMEOUT, AsPointer(query_timeout_s_), SQL_IS_UINTEGER);
  return StatementHandle(handle);
}

SQLRETURN Link::Execute(SQLHSTMT statement, std::string_view text) const {
  if (is_narrow_) return SQLExecDirect(statement, Bytes(text), static_cast<SQLINTEGER>(text.size()));
  std::u16string wide = ToWide(text);
  return SQLExecDirectW(statement, Units(wide), static_cast<SQLINTEGER>(wide.size()));
}

SQLRETURN Link::Prepare(SQLHSTMT statement, std::string_view text) const {
  if (is_narrow_) return SQLPrepare(statement, Bytes(text), static_cast<SQLINTEGER>(text.size()));
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

std::string Link::InfoText(SQLUSMALLINT what) const {
  std::array<char, 256> text{};
  SQLSMALLINT size = 0;
  if (!SQL_SUCCEEDED(SQLGetInfo(Handle(), what, text.data(), static_cast<SQLSMALLINT>(text.size()), &size)))
    return {};
  return text.data();
}

}  // namespace dralo::database::odbc
