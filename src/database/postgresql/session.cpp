#include "database/postgresql/session.h"

#include <algorithm>
#include <utility>

#include "database/postgresql/cursor.h"
#include "database/postgresql/quote.h"
#include "database/statement_text.h"
#include "database/type_rules.h"
#include "database/unknown_outcome.h"
#include "text/ascii.h"
#include "text/decimal.h"

namespace dralo::database::postgresql {

namespace {

using platform::Error;

/// Not DISCARD ALL, which would drop the prepared statements too.
constexpr const char* kCleaning[] = {
    "CLOSE ALL",        "SET SESSION AUTHORIZATION DEFAULT",          "RESET ALL",
    "UNLISTEN *",       "SELECT pg_catalog.pg_advisory_unlock_all()", "DISCARD TEMP",
    "DISCARD SEQUENCES"};

}  // namespace

Session::Session(const Options& options)
    : prepares_(options.prepares), link_(std::make_unique<Link>(options)) {}

std::unique_ptr<database::Cursor> Session::Prepare(const Query& query) {
  return std::make_unique<Cursor>(*this, query);
}

/// A plain name means the name in lower case, as it would without quotes.
std::string Session::QuoteName(std::string_view name) const {
  const auto is_plain = [](char c) { return text::IsLetterOrDigit(c) || c == '_'; };
  std::string meant(name);
  if (std::ranges::all_of(name, is_plain)) std::ranges::transform(meant, meant.begin(), text::ToLower);
  return Quote(meant);
}

std::string Session::QuoteExactName(std::string_view name) const { return Quote(name); }

std::string Session::ProcedureCall(std::string_view name, std::size_t parameters) const {
  std::string call(name);
  call += '(';
  for (std::size_t i = 0; i < parameters; ++i) call += i == 0 ? "?" : ", ?";
  call += ')';
  const auto dot = name.rfind('.');
  const std::string own_name = Quote(dot == name.npos ? name : name.substr(dot + 1), '\'');
  std::string query = "SELECT count(*) FROM pg_catalog.pg_proc WHERE prokind = 'p' AND proname IN (";
  query.append(own_name).append(", lower(").append(own_name).append("))");
  return (AskNumber(query) > 0 ? "CALL " : "SELECT * FROM ") + call;
}

std::string Session::Unchanged(const Column& column, const std::string& quoted_column, bool was_null) const {
  return database::Unchanged(kPostgreSqlRules, column, quoted_column, was_null);
}

void Session::RunDeferred() noexcept {
  for (Cursor* const cursor : std::exchange(deferred_, {})) cursor->StartEarly();
}

/// The outermost transaction begins with its first statement, in the same trip.
void Session::Begin() {
  RunDeferred();
  link_->Begin();
  BeginNow();
  if (IsInTransaction()) {
    link_->Run(("SAVEPOINT " + Savepoint(depth_)).c_str());
  } else {
    owns_transaction_ = is_begin_due_ = true;
  }
  ++depth_;
}

void Session::BeginNow() {
  if (std::exchange(is_begin_due_, false)) link_->Run("BEGIN");
}

void Session::Commit() {
  const bool is_outermost = depth_ == 1 && owns_transaction_;
  link_->SetRowsOfTransactionAside();
  const bool has_begun = !std::exchange(is_begin_due_, false);
  if (has_begun && is_outermost) {
    CommitNow();
  } else if (has_begun) {
    link_->Run(("RELEASE SAVEPOINT " + Savepoint(depth_ - 1)).c_str());
  }
  --depth_;
  if (is_outermost) owns_transaction_ = false;
}

/// A server that was told may have done it, whatever became of its answer.
void Session::CommitNow() {
  link_->Begin();
  try {
    link_->Run("COMMIT");
  } catch (const Error& error) {
    if (link_->IsDead()) throw UnknownOutcome(error);
    throw;
  }
}

void Session::Rollback() noexcept {
  const bool is_outermost = depth_ == 1 && owns_transaction_;
  link_->SetRowsOfTransactionAside();
  --depth_;
  if (is_outermost) owns_transaction_ = false;
  if (!std::exchange(is_begin_due_, false)) RollBackNow(is_outermost);
  // What was begun here is over, so the next statement may have another connection.
  if (is_outermost && link_->IsDead() && !has_traces_) link_->Drop();
}

void Session::RollBackNow(bool is_outermost) noexcept {
  try {
    const std::string savepoint = "SAVEPOINT " + Savepoint(depth_);
    link_->Run(is_outermost ? "ROLLBACK" : ("ROLLBACK TO " + savepoint).c_str());
    if (!is_outermost) link_->Run(("RELEASE " + savepoint).c_str());
  } catch (const std::exception&) {
    link_->GiveUp();  // What is open then ends with the connection.
  }
}

/// After a transaction that could not be serialised with others, or a deadlock.
bool Session::MayRepeatAfter(const Error& error) const {
  const bool is_conflict = error.SqlState() == "40001" || error.SqlState() == "40P01";
  return is_conflict && depth_ == 0 && !IsInTransaction();
}

std::int64_t Session::AskNumber(const std::string& query) const {
  const Result answer = link_->Run(query.c_str());
  const Libpq& libpq = Libpq::Get();
  const bool has_row = libpq.PQntuples(answer.get()) > 0;
  const auto number = text::ParseNumber<std::int64_t>(has_row ? libpq.PQgetvalue(answer.get(), 0, 0) : "");
  if (!number) throw Error("The database gives no number", 0, {}, query);
  return *number;
}

/// Right for every sequence that the number may come from, and whatever a trigger makes of it.
database::Session::Inserted Session::Insert(const Query& insert, const BaseTable& table,
                                            const Column* numbered) {
  if (numbered == nullptr) return database::Session::Insert(insert, table, numbered);
  const std::string text = std::string(insert.text) + " RETURNING " + Quote(numbered->origin);
  const auto cursor = Prepare({text, insert.parameters});
  Inserted inserted;
  if (cursor->Step()) inserted.number = platform::Own(cursor->Value(0));
  inserted.rows = cursor->RowsAffected();
  return inserted;
}

/// In one trip. A statement that changes something, or whose rows are to be changed, is run or prepared on
/// its own.
bool Session::CountsBesideRows(const Query& rows) const {
  return !rows.is_updatable && statements_.KindOf(rows.text).is_select;
}

platform::Variant Session::CountBeside(const Query& count, database::Cursor& rows) {
  return static_cast<Cursor&>(rows).Count(count);
}

bool Session::IsAlive() noexcept { return link_->IsQuiet(); }

bool Session::Reset() noexcept {
  depth_ = 0;
  owns_transaction_ = is_begin_due_ = false;
  link_->SetPatience();
  try {
    return !has_prepared_ && !link_->RefusesChanges() && !link_->IsDead() && Clean();
  } catch (const std::exception&) {
    return false;
  }
}

/// In one trip; in none when nothing must be cleaned.
bool Session::Clean() {
  const PGTransactionStatusType state = link_->Transaction();
  const bool is_open = state == PQTRANS_INTRANS || state == PQTRANS_INERROR;
  if (state != PQTRANS_IDLE && !is_open) return false;
  std::vector<const char*> orders;
  if (is_open) orders.push_back("ROLLBACK");
  // Nobody knows which of its connections a pooler would clean; it cleans those that are closed.
  if (has_traces_ && link_->IsPooled()) return false;
  if (std::exchange(has_traces_, false)) {
    orders.insert(orders.end(), std::begin(kCleaning), std::end(kCleaning));
    keys_.Forget();  // A name may have meant another table.
  }
  if (orders.empty()) return true;
  link_->Begin();
  for (const char* const order : orders) link_->Order(order);
  link_->Send();
  const bool is_clean = std::ranges::all_of(orders, [&](const char*) {
    const ExecStatusType status = Libpq::Get().PQresultStatus(link_->Answer().get());
    return status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK;
  });
  link_->Finish();
  return is_clean && link_->Transaction() == PQTRANS_IDLE;
}

void Session::Keep(const StatementCache::Key& key, std::shared_ptr<Statement> statement) {
  const auto gone = statements_.Keep(key, std::move(statement));
  if (gone) Unprepare(*gone);
}

void Session::Unprepare(Statement& statement) {
  if (statement.first) Unprepare(*std::exchange(statement.first, nullptr));
  if (statement.IsPreparedOn(*link_)) unused_names_.push_back(statement.name);
  statement.prepared = 0;
  statement.name.clear();
}

/// Outside of transactions, which a failure would end. What the user has deallocated is gone already.
void Session::DeallocateUnused() {
  if (unused_names_.empty() || link_->Transaction() != PQTRANS_IDLE) return;
  for (const std::string& name : std::exchange(unused_names_, {})) {
    try {
      link_->Run(("DEALLOCATE " + name).c_str());
    } catch (const Error& error) {
      if (IsLoss(error)) throw;
    }
  }
}

void Session::GiveName(Statement& statement) {
  DeallocateUnused();
  const bool may_stay = prepares_ && !link_->IsPooled() && depth_ == 0;
  if (may_stay && statement.came_again && statement.name.empty()) {
    statement.name = "dralo_" + std::to_string(++last_name_);
  }
}

void Session::Note(const StatementKind& kind, std::string_view text) {
  // It may end the transaction, or change a table that is being read.
  if (kind.controls_transaction || kind.defines) link_->SetRowsOfTransactionAside();
  const bool may_set = kind.leaves_traces || kind.calls_functions;
  if (may_set && text::ContainsAscii(text, "statement_timeout")) link_->ForgoLimit();
  has_traces_ |= kind.leaves_traces || kind.calls_functions;
  has_prepared_ |= text::StartsWithAscii(WithoutFront(text, '('), "PREPARE");
  if (kind.defines) catalog_.Forget();
  if (kind.defines || may_set) keys_.Forget();
}

Execution::Opening Session::TakeOpening(const StatementKind& kind) {
  if (std::exchange(is_begin_due_, false)) return Execution::Opening::kTransaction;
  const bool needs_guard = IsInTransaction() && depth_ == 0 && !kind.controls_transaction;
  return needs_guard ? Execution::Opening::kSavepoint : Execution::Opening::kNone;
}

/// Between two trips.
bool Session::HasNothingToLose() const {
  return link_->Transaction() == PQTRANS_IDLE && depth_ == 0 && !has_traces_;
}

bool Session::IsReplaceable() const { return !IsInTransaction() && !is_begin_due_ && !has_traces_; }

bool Session::IsLoss(const Error& error) {
  const std::string& state = error.SqlState();
  return state.starts_with("08") || state == "57P01" || state == "57P02";
}

}  // namespace dralo::database::postgresql
