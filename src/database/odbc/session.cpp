#include "database/odbc/session.h"

#include <sqlext.h>

#include <algorithm>
#include <utility>

#include "database/date_text.h"
#include "database/odbc/cursor.h"
#include "database/odbc/quote.h"
#include "database/statement_text.h"
#include "database/unknown_outcome.h"
#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database::odbc {

namespace {

using platform::Error;
using platform::Variant;

std::string TextLiteral(std::string_view text) { return Quote(text, "'"); }

std::string Savepoint(int depth) { return "dralo_" + std::to_string(depth); }

}  // namespace

Session::Session(const Options& options) : link_(options) {}

std::unique_ptr<database::Cursor> Session::Prepare(const Query& query) {
  return std::make_unique<Cursor>(*this, query);
}

/// A plain name means what it would mean without quotes: if the database changes its letter case, the changed
/// name.
std::string Session::QuoteName(std::string_view name) const {
  const auto is_plain = [](char c) { return text::IsLetterOrDigit(c) || c == '_'; };
  std::string meant(name);
  if (std::ranges::all_of(name, is_plain)) {
    SQLUSMALLINT letters = SQL_IC_MIXED;
    SQLGetInfo(link_.Handle(), SQL_IDENTIFIER_CASE, &letters, sizeof letters, nullptr);
    for (char& c : meant) {
      if (letters == SQL_IC_LOWER) c = text::ToLower(c);
      if (letters == SQL_IC_UPPER) c = text::ToUpper(c);
    }
  }
  return Quote(meant, link_.NameQuote());
}

std::string Session::QuoteExactName(std::string_view name) const { return Quote(name, link_.NameQuote()); }

std::string Session::ProcedureCall(std::string_view name, std::size_t parameters) const {
  if (link_.InfoText(SQL_PROCEDURES) == "N") {
    throw Error("The database has no stored procedures; give the command's text and CommandType 1");
  }
  std::string values;
  for (std::size_t i = 0; i < parameters; ++i) values += i == 0 ? "?" : ", ?";
  return "{call " + std::string(name) + "(" + values + ")}";
}

std::string Session::Unchanged(const Column& column, const std::string& quoted_column, bool was_null) const {
  return database::Unchanged(link_.GetDialect().types, column, quoted_column, was_null);
}

std::string_view Session::RowLock() const { return link_.GetDialect().row_lock; }

Variant Session::Stored(const Column& column, const Variant& value) const {
  const auto* time = std::get_if<platform::DateTime>(&value);
  if (!time || !link_.GetDialect().has_text_dates) return value;
  return StoredText(*time, column.time_parts);
}

bool Session::SwitchAutocommit(bool is_on) const {
  const SQLULEN value = is_on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
  return SQL_SUCCEEDED(
      SQLSetConnectAttr(link_.Handle(), SQL_ATTR_AUTOCOMMIT, AsPointer(value), SQL_IS_UINTEGER));
}

bool Session::EndTransaction(SQLSMALLINT how) const {
  return SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, link_.Handle(), how)) && SwitchAutocommit(true);
}

/// Inside a transaction of the user, or of an outer call, it begins a part that can be undone alone.
void Session::Begin() {
  if (is_in_transaction_ || depth_ > 0) {
    link_.Run(Filled(link_.GetDialect().savepoint, '#', Savepoint(depth_)));
  } else if (SwitchAutocommit(false)) {
    owns_transaction_ = true;
  } else {
    throw Error("The database does not begin a transaction");
  }
  ++depth_;
}

/// A server that was told may have done it, whatever became of its answer.
void Session::CommitOutermost() {
  if (!SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, link_.Handle(), SQL_COMMIT))) {
    const Error error = link_.Failure();
    if (error.SqlState().starts_with("08") || link_.IsDead()) throw UnknownOutcome(error);
    throw Error("The database does not commit the transaction");
  }
  has_traces_ |= !SwitchAutocommit(true);
}

void Session::Commit() {
  const bool is_outermost = depth_ == 1 && owns_transaction_;
  const std::string release = Filled(link_.GetDialect().release, '#', Savepoint(depth_ - 1));
  if (is_outermost) {
    CommitOutermost();
    owns_transaction_ = false;
  } else if (!release.empty()) {
    link_.Run(release);
  }
  --depth_;
}

void Session::Rollback() noexcept {
  const bool is_outermost = depth_ == 1 && owns_transaction_;
  --depth_;
  if (is_outermost) {
    owns_transaction_ = false;
    has_traces_ |= !EndTransaction(SQL_ROLLBACK);
    return;
  }
  try {
    const Dialect& dialect = link_.GetDialect();
    link_.Run(Filled(dialect.rollback, '#', Savepoint(depth_)));
    if (!dialect.release.empty()) link_.Run(Filled(dialect.release, '#', Savepoint(depth_)));
  } catch (const std::exception&) {
    has_traces_ = true;  // What is open then ends with the connection.
  }
}

std::optional<std::int64_t> Session::LastIdentity(const BaseTable& table, const Column& column) const {
  const std::string of_table = Filled(link_.GetDialect().last_number, '#', TextLiteral(table.name));
  return link_.AskNumber(Filled(of_table, '$', TextLiteral(column.origin)));
}

bool Session::IsAlive() noexcept {
  try {
    return link_.AskNumber(link_.GetDialect().probe) == 1;
  } catch (const std::exception&) {
    return false;
  }
}

/// A transaction that a statement has begun is ended by a statement, because not every driver knows of it.
bool Session::Reset() noexcept {
  if (has_traces_) return false;
  depth_ = 0;
  if (std::exchange(owns_transaction_, false)) return EndTransaction(SQL_ROLLBACK);
  if (!std::exchange(is_in_transaction_, false)) return true;
  try {
    link_.Run("ROLLBACK");
    return true;
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
