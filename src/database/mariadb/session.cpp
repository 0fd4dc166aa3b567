#include "database/mariadb/session.h"

#include <utility>

#include "database/date_text.h"
#include "database/mariadb/cursor.h"
#include "database/mariadb/quote.h"
#include "database/select_shape.h"
#include "database/statement_text.h"
#include "database/type_rules.h"
#include "text/ascii.h"

namespace dralo::database::mariadb {

namespace {

using platform::Error;

/// A host that has vanished says no goodbye; after so long without work a question is worth its round trip.
constexpr std::chrono::seconds kLongIdle{30};

/// For the work between two users; if it takes longer, the next user can as well have another session.
constexpr std::chrono::seconds kTimeBetweenUsers{2};

constexpr int kTooManyPrepared = 1461;

constexpr std::string_view kConflict = "40001";

constexpr std::string_view kLimit = "\nLIMIT ? OFFSET ?";

constexpr std::chrono::minutes kLifeOfKeys{1};

/// Tables whose keys are remembered; more are rare, and only cost a question each.
constexpr std::size_t kMaxKnownTables = 256;

}  // namespace

std::unique_ptr<database::Cursor> Session::Prepare(const Query& query) {
  return std::make_unique<Cursor>(*this, query);
}

std::string Session::QuoteName(std::string_view name) const { return Quote(name); }

std::string Session::ProcedureCall(std::string_view name, std::size_t parameters) const {
  std::string values;
  for (std::size_t i = 0; i < parameters; ++i) values += i == 0 ? "?" : ", ?";
  return "CALL " + std::string(name) + "(" + values + ")";
}

std::string Session::Unchanged(const Column& column, const std::string& quoted_column, bool was_null) const {
  return database::Unchanged(kMariaDbRules, column, quoted_column, was_null);
}

/// A time on 1899-12-30, the day that stands for "no date", is bound as a time of day; as a text it keeps the
/// day where the column has one.
platform::Variant Session::Stored(const Column& column, const platform::Variant& value) const {
  const auto* const time = std::get_if<platform::DateTime>(&value);
  if (time == nullptr || !time->HasZeroDate()) return value;
  return StoredText(*time, column.time_parts);
}

std::string Session::CurrentDatabase() const {
  const char* const name = link_.Handle() != nullptr ? link_.Handle()->db : nullptr;
  return name != nullptr ? name : "";
}

void Session::Connect() {
  cache_.Clear();
  keys_.clear();
  link_.Connect();
  was_left_ = false;
}

void Session::Settle() {
  link_.PutReadAside();
  if (was_left_) Connect();
}

std::unique_ptr<Statement> Session::TakePlain(std::string_view text, const StatementKind& kind) {
  if (auto kept = cache_.Take(text, Form::kPlain)) return kept;
  if (kind.is_select) return Prepare(text, Form::kPlain, {});
  Settle();
  return MakeStatement(text, Form::kPlain, std::string(text));
}

/// A server has room for a number of prepared statements of all its sessions. When it is full, those that are
/// only kept for reuse are closed.
std::unique_ptr<Statement> Session::MakeStatement(std::string_view text, Form form, const std::string& sql) {
  try {
    return std::make_unique<Statement>(link_, text, form, sql);
  } catch (const Error& error) {
    if (error.Number() != kTooManyPrepared) throw;
  }
  cache_.Clear();
  return std::make_unique<Statement>(link_, text, form, sql);
}

/// When the limit is refused, running the unchanged text shows whether that itself is wrong.
std::unique_ptr<Statement> Session::TakeLimited(std::string_view text) {
  if (auto kept = cache_.Take(text, Form::kLimited)) return kept;
  if (cache_.RefusesLimit(text)) return nullptr;
  try {
    return Prepare(text, Form::kLimited, kLimit);
  } catch (const Error&) {
    if (link_.IsDead()) throw;
    return nullptr;
  }
}

std::unique_ptr<Statement> Session::Prepare(std::string_view text, Form form, std::string_view behind) {
  Settle();  // The current database is that of the connection.
  const std::string plain(WithoutEnd(text));
  const std::string ordered = OrderedByKey(plain);
  if (!ordered.empty()) {
    try {
      return MakeStatement(text, form, ordered + std::string(behind));
    } catch (const Error&) {
      if (link_.IsDead()) throw;
    }
  }
  return MakeStatement(text, form, plain + std::string(behind));
}

/// The query with the keys of its tables added to its order; otherwise rows with equal fields could have
/// another order on another page. The keys have the direction of the last field, so that an index can serve
/// for all. Empty when there is no order, or when a table or its key is not known.
std::string Session::OrderedByKey(std::string_view text) {
  const SelectShape shape = ShapeOf(text);
  if (!shape.ends_with_order || !shape.has_rows_of_tables) return {};
  std::string ordered(text);
  ordered += '\n';
  for (const NamedTable& named : shape.tables) {
    if (named.table.empty()) return {};
    const Names key = KeyOf(named.database, named.table);
    if (key.empty()) return {};
    for (const std::string& column : key) {
      ordered.append(", ").append(Quote(named.alias)).append(".").append(Quote(column));
      if (shape.is_descending) ordered += " DESC";
    }
  }
  return ordered;
}

/// The first key of the table; empty when the table has none or does not exist, which is not remembered,
/// because it may change.
Names Session::KeyOf(const std::string& database, const std::string& table) {
  std::pair name(database.empty() ? CurrentDatabase() : database, table);
  const auto known = keys_.find(name);
  if (known != keys_.end()) return known->second;
  if (keys_.size() >= kMaxKnownTables) keys_.clear();
  TableFacts facts = FactsOf(*this, name.first, table);
  if (facts.keys.empty()) return {};
  return keys_.emplace(std::move(name), std::move(facts.keys.front())).first->second;
}

void Session::Begin() {
  Reconnecting({.is_query = true}, [this] {
    Settle();
    transactions_.Begin();
  });
}

void Session::Commit() {
  Settle();
  transactions_.Commit();
}

void Session::Rollback() noexcept {
  const bool is_outermost = transactions_.IsOutermost();
  link_.PutReadAside();
  const bool is_done = transactions_.Rollback();
  if (!link_.IsDead()) {
    has_traces_ |= !is_done;  // Whatever is open ends with the user.
  } else if (is_outermost && !has_traces_) {
    was_left_ = true;  // What was begun here is over, so the next statement may have another connection.
  }
}

/// After a deadlock, or after a commit in a cluster that another one has overtaken.
bool Session::MayRepeatAfter(const Error& error) const {
  return error.SqlState() == kConflict && !transactions_.AreOpen();
}

bool Session::IsAlive() noexcept {
  ForgetOldKeys();
  if (!link_.IsQuiet()) return false;
  const bool was_idle_long = std::chrono::steady_clock::now() - last_use_ >= kLongIdle;
  if (!was_idle_long) return true;
  const Link::Haste haste(link_, kTimeBetweenUsers);
  return link_.Answers();
}

/// A table may have got another key, and the orders of statements are made from the keys.
void Session::ForgetOldKeys() noexcept {
  const auto now = std::chrono::steady_clock::now();
  if (now - keys_since_ < kLifeOfKeys) return;
  keys_since_ = now;
  keys_.clear();
  cache_.Clear();
}

/// The server's reset keeps the current database. After it, a session on a node of a cluster would no longer
/// wait for what was saved on other nodes, whatever its settings say.
bool Session::Reset() noexcept {
  last_use_ = std::chrono::steady_clock::now();
  const bool is_elsewhere = has_left_database_ || CurrentDatabase() != link_.FirstDatabase();
  if (link_.HasReader() || was_left_ || link_.IsDead() || is_elsewhere) return false;
  transactions_.Forget();
  const Link::Haste haste(link_, kTimeBetweenUsers);
  try {
    if (std::exchange(has_traces_, false)) {
      if (link_.IsInCluster()) return false;
      cache_.Clear();
      link_.Reset();
    } else if (link_.IsInTransaction()) {
      link_.Run("ROLLBACK");
    }
    return true;
  } catch (const std::exception&) {
    return false;
  }
}

void Session::GiveBack(std::unique_ptr<Statement> statement, const StatementKind& kind) noexcept {
  const bool may_stay = kind.is_query || statement->Describe().columns->empty();
  if (!may_stay || statement->HasOpenResult() || !statement->IsOfThisConnection()) return;
  statement->NoteKept();
  cache_.Give(std::move(statement));
}

void Session::Expect(const StatementKind& kind, std::string_view text) {
  transactions_.Expect(kind, text);
  // Not every server tells which database is the current one.
  has_left_database_ |= text::StartsWithAscii(FromFirstWord(text), "USE");
  has_traces_ |= kind.leaves_traces || kind.calls_functions;
}

void Session::Note(const StatementKind& kind, std::int64_t last_identity) {
  if (kind.defines) keys_.clear();
  if (!kind.is_query) last_identity_ = last_identity;
}

bool Session::Leave() noexcept {
  if (!MayLeave()) return false;
  link_.Drop();
  was_left_ = true;
  return true;
}

}  // namespace dralo::database::mariadb
