#include "database/odbc/session.h"

#include <sqlext.h>

#include <algorithm>
#include <utility>

#include "database/date_text.h"
#include "database/odbc/comparison.h"
#include "database/odbc/cursor.h"
#include "database/odbc/quote.h"
#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database::odbc {

namespace {

using platform::Error;
using platform::Variant;

std::string TextLiteral(std::string_view text) { return Quote(text, "'"); }

bool HasTextTransactions(Dialect dialect) {
  return dialect == Dialect::kPostgreSql || dialect == Dialect::kMariaDb || dialect == Dialect::kSqlite;
}

}  // namespace

Session::Session(const Options& options) : link_(options) {}

std::unique_ptr<database::Cursor> Session::Prepare(const Query& query) {
  return std::make_unique<Cursor>(*this, query);
}

/// In PostgreSQL a plain name means the one in small letters, as it would without quotes.
std::string Session::QuoteName(std::string_view name) const {
  const auto is_plain = [](char c) { return text::IsLetterOrDigit(c) || c == '_'; };
  std::string meant(name);
  if (link_.GetDialect() == Dialect::kPostgreSql && std::ranges::all_of(name, is_plain)) {
    for (char& c : meant) c = text::ToLower(c);
  }
  return Quote(meant, link_.NameQuote());
}

std::string Session::ProcedureCall(std::string_view name, std::size_t parameters) const {
  std::string values;
  for (std::size_t i = 0; i < parameters; ++i) values += i == 0 ? "?" : ", ?";
  const std::string call = std::string(name) + "(" + values + ")";
  if (link_.GetDialect() == Dialect::kSqlite) {
    throw Error("SQLite has no stored procedures; give the command's text and CommandType 1");
  }
  if (link_.GetDialect() != Dialect::kPostgreSql) return "{call " + call + "}";
  const auto dot = name.rfind('.');
  const std::string own_name(dot == name.npos ? name : name.substr(dot + 1));
  const bool is_procedure =
      link_.AskNumber("SELECT COUNT(*) FROM pg_proc WHERE prokind = 'p' AND proname IN (" +
                      TextLiteral(own_name) + ", lower(" + TextLiteral(own_name) + "))") > 0;
  return is_procedure ? "CALL " + call : "SELECT * FROM " + call;
}

std::string Session::Unchanged(const Column& column, const std::string& quoted_column, bool was_null) const {
  return was_null ? NoValue(link_.GetDialect(), column, quoted_column)
                  : SameValue(link_.GetDialect(), column, quoted_column);
}

std::string_view Session::RowLock() const {
  switch (link_->GetDialect()) {
    case Dialect::kPostgreSql:
    case Dialect::kMariaDb:
    case Dialect::kOracle:
      return " FOR UPDATE";
    default:
      return {};
  }
}

Variant Session::Stored(const Column& column, const Variant& value) const {
  const auto* time = std::get_if<platform::DateTime>(&value);
  if (!time || link_.GetDialect() != Dialect::kSqlite) return value;
  return StoredText(*time, column.time_parts);
}

std::string Session::InsertOfDefaults(const std::string& quoted_table) const {
  const bool has_no_word = link_.GetDialect() == Dialect::kMariaDb;
  return "INSERT INTO " + quoted_table + (has_no_word ? " () VALUES ()" : " DEFAULT VALUES");
}

bool Session::SwitchAutocommit(bool is_on) const {
  const SQLULEN value = is_on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
  return SQL_SUCCEEDED(
      SQLSetConnectAttr(link_.Handle(), SQL_ATTR_AUTOCOMMIT, AsPointer(value), SQL_IS_UINTEGER));
}

void Session::BeginFlat() {
  if (HasTextTransactions(link_.GetDialect())) {
    link_.Run("BEGIN");
  } else if (!SwitchAutocommit(false)) {
    throw Error("The database does not begin a transaction");
  }
}

void Session::Begin() {
  if (is_in_transaction_) {
    if (HasTextTransactions(link_.GetDialect())) link_.Run("SAVEPOINT dralo_" + std::to_string(depth_));
  } else {
    BeginFlat();
    is_in_transaction_ = true;
    owns_transaction_ = true;
  }
  ++depth_;
}

void Session::Commit() {
  const bool is_outermost = depth_ == 1 && owns_transaction_;
  if (HasTextTransactions(link_.GetDialect())) {
    link_.Run(is_outermost ? "COMMIT" : "RELEASE SAVEPOINT dralo_" + std::to_string(depth_ - 1));
  } else if (is_outermost) {
    if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, link_.Handle(), SQL_COMMIT))) {
      throw Error("The database does not commit the transaction");
    }
    SwitchAutocommit(true);
  }
  --depth_;
  if (is_outermost) is_in_transaction_ = owns_transaction_ = false;
}

void Session::Rollback() noexcept {
  const bool is_outermost = depth_ == 1 && owns_transaction_;
  --depth_;
  try {
    if (HasTextTransactions(link_.GetDialect())) {
      const std::string savepoint = "SAVEPOINT dralo_" + std::to_string(depth_);
      link_.Run(is_outermost ? "ROLLBACK" : "ROLLBACK TO " + savepoint);
      if (!is_outermost) link_.Run("RELEASE " + savepoint);
    } else if (is_outermost) {
      SQLEndTran(SQL_HANDLE_DBC, link_.Handle(), SQL_ROLLBACK);
      SwitchAutocommit(true);
    }
  } catch (const std::exception&) {
    has_traces_ = true;  // Whatever is open ends with the connection.
  }
  if (is_outermost) is_in_transaction_ = owns_transaction_ = false;
}

std::optional<std::int64_t> Session::LastIdentity(const BaseTable& table, const Column& column) const {
  switch (link_.GetDialect()) {
    case Dialect::kPostgreSql:
      return link_.AskNumber("SELECT currval(pg_get_serial_sequence(" + TextLiteral(table.name) + ", " +
                             TextLiteral(column.origin) + "))");
    case Dialect::kMariaDb:
      return link_.AskNumber("SELECT LAST_INSERT_ID()");
    case Dialect::kSqlite:
      return link_.AskNumber("SELECT last_insert_rowid()");
    default:
      return link_.AskNumber("SELECT @@IDENTITY");
  }
}

bool Session::IsAlive() noexcept {
  if (!link_.HasItsFile()) return false;
  try {
    return link_.AskNumber(link_.GetDialect() == Dialect::kOracle ? "SELECT 1 FROM DUAL" : "SELECT 1") == 1;
  } catch (const std::exception&) {
    return false;
  }
}

bool Session::Reset() noexcept {
  if (has_traces_) return false;
  depth_ = 0;
  owns_transaction_ = false;
  if (!std::exchange(is_in_transaction_, false)) return true;
  try {
    if (HasTextTransactions(link_.GetDialect())) {
      link_.Run("ROLLBACK");
      return true;
    }
    return SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, link_.Handle(), SQL_ROLLBACK)) && SwitchAutocommit(true);
  } catch (const std::exception&) {
    return false;
  }
}

void Session::Note(const StatementKind& kind) {
  has_traces_ |= kind.leaves_traces || kind.calls_functions;
  if (kind.begins_transaction) is_in_transaction_ = true;
  if (kind.ends_transaction) is_in_transaction_ = false;
}

}  // namespace dralo::database::odbc
