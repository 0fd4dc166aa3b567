#include "database/sqlite/session.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "database/date_text.h"
#include "database/sqlite/cursor.h"
#include "database/sqlite/error.h"
#include "database/sqlite/memory_map.h"
#include "database/sqlite/quote.h"
#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database::sqlite {

namespace {

using platform::Error;
using platform::Variant;

/// Pragmas whose value only says what to show.
constexpr std::array<std::string_view, 7> kAskingPragmas = {
    "table_info", "table_xinfo", "table_list", "index_list", "index_info", "index_xinfo", "foreign_key_list"};

bool IsAsking(std::string_view pragma) {
  return std::ranges::any_of(kAskingPragmas,
                             [&](std::string_view name) { return text::EqualAscii(pragma, name); });
}

void RequireFile(const Options& options) {
  std::error_code error;
  const bool is_needed = options.path != kInMemory && (options.flags & SQLITE_OPEN_CREATE) == 0;
  if (is_needed && !std::filesystem::exists(options.path, error)) {
    throw Error("The database file " + options.data_source +
                " does not exist or cannot be reached; Mode=ReadWriteCreate makes a new one");
  }
}

}  // namespace

Session::Session(const Options& options) {
  RequireFile(options);
  sqlite3* connection = nullptr;
  const int flags = options.flags | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
  const int code = sqlite3_open_v2(options.path.c_str(), &connection, flags, nullptr);
  handle_.reset(connection);
  if (code != SQLITE_OK) {
    throw Error("The database file " + options.data_source + " cannot be opened: " + sqlite3_errstr(code),
                code);
  }
  sqlite3_busy_timeout(connection, options.busy_timeout_ms);
  time_limit_.Watch(connection, options.query_timeout_s);
  MapFile(connection, options);
  sqlite3_set_authorizer(connection, Watch, this);
}

std::unique_ptr<database::Cursor> Session::Prepare(const Query& query) {
  return std::make_unique<Cursor>(*this, Take(query), query);
}

std::unique_ptr<Statement> Session::Take(const Query& query) {
  bool refuses_limit = false;
  if (query.max_records > 0) {
    auto limited = TakeLimited(query.text);
    refuses_limit = limited == nullptr;
    if (limited && limited->PaysOff(query.max_records)) return limited;
    if (limited) GiveBack(std::move(limited));
  }
  auto plain = cache_.Take(query.text, Form::kPlain);
  if (!plain) plain = Statement::Prepare(Handle(), query.text);
  if (refuses_limit) plain->RefuseLimit();
  return plain;
}

std::unique_ptr<Statement> Session::TakeLimited(std::string_view text) {
  if (auto limited = cache_.Take(text, Form::kLimited)) return limited;
  return cache_.RefusesLimit(text) ? nullptr : Statement::PrepareLimited(Handle(), text);
}

std::string Session::QuoteName(std::string_view name) const { return Quote(name); }

std::string Session::ProcedureCall(std::string_view /*name*/, std::size_t /*parameters*/) const {
  throw Error("SQLite has no stored procedures; give the command's text and CommandType 1");
}

/// COLLATE BINARY tells values apart that only sort as equal.
std::string Session::Unchanged(const Column& /*column*/, const std::string& quoted_column,
                               bool was_null) const {
  return quoted_column + (was_null ? " IS NULL" : " COLLATE BINARY IS ?");
}

Variant Session::Stored(const Column& column, const Variant& value) const {
  const auto* time = std::get_if<platform::DateTime>(&value);
  if (!time) return value;
  return StoredText(*time, column.time_parts);
}

/// What is read while a statement stands on a row is of the moment of that row: the counting one stands on
/// its only row until the rows have begun.
platform::Variant Session::CountBeside(const Query& count, database::Cursor& rows) {
  const auto counting = Prepare(count);
  Variant value = FirstValue(*counting, count);
  static_cast<Cursor&>(rows).StepAhead();
  return value;
}

/// Savepoints may have the same name: the latest one is meant.
void Session::Begin() {
  const bool is_part = sqlite3_get_autocommit(Handle()) == 0;
  Run({is_part ? "SAVEPOINT dralo_change" : "BEGIN IMMEDIATE"});
  if (!is_part) owns_transaction_ = true;
  ++depth_;
}

void Session::Commit() {
  const bool is_outermost = depth_ == 1 && owns_transaction_;
  Run({is_outermost ? "COMMIT" : "RELEASE dralo_change"});
  --depth_;
  if (is_outermost) owns_transaction_ = false;
}

/// After some failures SQLite has already rolled everything back.
void Session::Rollback() noexcept {
  const bool is_outermost = depth_ == 1 && owns_transaction_;
  --depth_;
  if (is_outermost) owns_transaction_ = false;
  if (sqlite3_get_autocommit(Handle()) != 0) return;
  const char* text = is_outermost ? "ROLLBACK" : "ROLLBACK TO dralo_change; RELEASE dralo_change";
  sqlite3_exec(Handle(), text, nullptr, nullptr, nullptr);
}

bool Session::IsAlive() noexcept {
  int has_moved = 0;
  sqlite3_file_control(Handle(), "main", SQLITE_FCNTL_HAS_MOVED, &has_moved);
  return has_moved == 0;
}

bool Session::Reset() noexcept {
  for (sqlite3_stmt* running = nullptr; (running = sqlite3_next_stmt(Handle(), running)) != nullptr;) {
    sqlite3_reset(running);
  }
  if (sqlite3_get_autocommit(Handle()) == 0) sqlite3_exec(Handle(), "ROLLBACK", nullptr, nullptr, nullptr);
  depth_ = 0;
  owns_transaction_ = false;
  return sqlite3_get_autocommit(Handle()) != 0 && !has_leftovers_;
}

int Session::Watch(void* session, int action, const char* name, const char* value, const char* database,
                   const char* /*trigger*/) noexcept {
  bool& has_leftovers = static_cast<Session*>(session)->has_leftovers_;
  switch (action) {
    case SQLITE_CREATE_TEMP_INDEX:
    case SQLITE_CREATE_TEMP_TABLE:
    case SQLITE_CREATE_TEMP_TRIGGER:
    case SQLITE_CREATE_TEMP_VIEW:
    case SQLITE_ATTACH:
    case SQLITE_DETACH:
      has_leftovers = true;
      break;
    case SQLITE_CREATE_VTABLE:
      has_leftovers |= database != nullptr && std::string_view(database) == "temp";
      break;
    case SQLITE_PRAGMA:
      has_leftovers |= value != nullptr && !IsAsking(name);
      break;
    default:
      break;
  }
  return SQLITE_OK;
}

}  // namespace dralo::database::sqlite
