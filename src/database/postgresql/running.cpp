#include <algorithm>
#include <span>
#include <utility>

#include "database/postgresql/cursor.h"
#include "text/ascii.h"
#include "text/decimal.h"

namespace dralo::database::postgresql {

namespace {

using platform::Error;
using Rows = Execution::Rows;

/// How PostgreSQL refuses to run what it has prepared: for other columns than there are now, because it is
/// gone, or, with a pooler, because it is somebody else's.
constexpr std::string_view kUnprepared[] = {"0A000", "26000", "42P05"};

/// How it refuses a query inside another one, although it may accept the query alone.
constexpr std::string_view kUnlimited[] = {"42601", "0A000", "42P16"};

bool Has(std::span<const std::string_view> states, const Error& error) {
  return std::ranges::find(states, error.SqlState()) != states.end();
}

/// Of a query with the keys of its tables in its order these are perhaps the keys' fault.
bool IsOfSyntaxOrNames(const Error& error) { return error.SqlState().starts_with("42"); }

}  // namespace

void Cursor::Start() {
  session_.Undefer(*this);
  if (max_records_ > 0 && RowsWanted() <= 0) {
    state_ = State::kDone;
    return;
  }
  ChooseForm();
  if (IsLong()) CountAlone();
  session_.Reconnecting(query_->kind, [&] { Run(Rows::kAll); });
}

void Cursor::ChooseForm() {
  const bool is_first = offset_ == 0 && IsShort() && !is_updatable_;
  const std::shared_ptr<Statement> first = is_first ? query_->FirstRows(RowsWanted()) : nullptr;
  statement_ = first ? first : query_;
}

/// Returns whether it was prepared before.
bool Cursor::MakeReady() {
  const bool was_prepared = statement_->IsPreparedOn(link_);
  session_.GiveName(*statement_);
  return was_prepared;
}

void Cursor::Run(Rows rows) {
  for (int attempt = 1;; ++attempt) {
    bool was_prepared = false;
    bool was_count_prepared = false;
    try {
      link_.Begin();
      was_prepared = MakeReady();
      if (IsCounting()) was_count_prepared = count_->MakeReady();
      const bool is_long = rows != Rows::kNone && IsLong();
      // The columns must be known before rows are fetched in parts.
      if (rows == Rows::kNone || (is_long && !description_)) Send(Rows::kNone);
      if (rows != Rows::kNone) Send(is_long ? Rows::kParts : Rows::kAll);
      return;
    } catch (const Error& error) {
      constexpr int kMaxAttempts = 4;
      const bool may_run =
          IsCounting() ? count_->MayRunAgain(error, was_count_prepared) : MayRunAgain(error, was_prepared);
      if (attempt == kMaxAttempts || !may_run) throw;
    }
  }
}

platform::Variant Cursor::Count(const Query& count) {
  if (!count_) return session_.Ask(count);
  if (IsCounting() && state_ == State::kPrepared && IsShort()) {
    try {
      Start();
    } catch (const Error&) {
      if (!counted_) throw;
      state_ = State::kPrepared;
    }
  }
  CountAlone();
  return *counted_;
}

void Cursor::CountAlone() {
  if (!IsCounting()) return;
  count_->Prepare();
  counted_ = Session::FirstValue(*count_, {.text = count_->statement_->text});
  count_->Stop();
}

void Cursor::Send(Rows rows) {
  link_.Begin();
  if (rows != Rows::kNone) session_.Note(statement_->kind, statement_->text);
  const bool may_drop = session_.IsReplaceable();
  try {
    WithSource([&] { Send(rows, may_drop); });
  } catch (const Error&) {
    if (rows == Rows::kParts && may_drop && link_.IsDead()) link_.Drop();
    throw;
  }
  if (rows != Rows::kNone) Open();
}

/// Functions could do something that is expected to be done, and locks be taken that are expected to be had,
/// before the last row is read.
bool Cursor::MayUseServerCursor() const {
  const bool may_lock =
      text::ContainsAscii(statement_->text, "UPDATE") || text::ContainsAscii(statement_->text, "SHARE");
  return session_.HasTransaction() && !statement_->kind.calls_functions && !may_lock;
}

void Cursor::OpenServerCursor() {
  auto cursor = std::make_unique<ServerCursor>(session_, *statement_, ParametersOfForm(),
                                               session_.TakeOpening(statement_->kind));
  Result first = cursor->TakeFirst();
  if (!description_->IsOf(first.get())) Learn(first);
  rows_ = std::make_unique<ResultRows>(link_, std::move(cursor), std::move(first));
}

/// Where the page has set something itself, that stays as it is.
Execution::Opening Cursor::TakeOpening(Rows rows, bool is_replaceable) {
  const Execution::Opening opening = session_.TakeOpening(statement_->kind);
  const bool keeps_plan = rows == Rows::kAll && is_replaceable && statement_->MayKeepPlan();
  return keeps_plan && opening == Execution::Opening::kNone ? Execution::Opening::kKeptPlan : opening;
}

void Cursor::Send(Rows rows, bool may_drop) {
  if (rows == Rows::kParts && MayUseServerCursor()) return OpenServerCursor();
  const bool is_counting = IsCounting() && rows != Rows::kParts;
  const Parameters count_parameters = is_counting ? count_->ParametersOfForm() : Parameters();
  std::optional<Execution::Leader> leader;
  if (is_counting) leader.emplace(Execution::Leader{*count_->statement_, count_parameters});
  Execution execution(link_, *statement_, ParametersOfForm(), rows, TakeOpening(rows, may_drop),
                      leader ? &*leader : nullptr);
  Execution::Answers count;
  if (leader) {
    count = execution.Lead(*leader);
    counted_ = FirstValue(count.rows.get());
  }
  const Result columns = execution.Description();
  if (rows == Rows::kParts) return Split(execution, columns, may_drop);
  Result answer = rows == Rows::kAll ? execution.All() : nullptr;
  if (count.columns) count_->Learn(count.columns);
  if (columns) Learn(columns);
  if (answer) Adopt(std::move(answer));
}

void Cursor::Split(const Execution& execution, const Result& columns, bool may_drop) {
  const bool is_known = !columns || description_->IsOf(columns.get());
  const auto count = is_known ? description_->columns->size()
                              : static_cast<std::size_t>(Libpq::Get().PQnfields(columns.get()));
  rows_ = std::make_unique<ResultRows>(link_, execution, count, may_drop);
  rows_->Await();
  // The table has changed since. Asking about it sets the rows aside.
  if (!is_known) Learn(columns);
}

void Cursor::Adopt(Result answer) {
  if (ChangesData()) {
    const char* const changed = Libpq::Get().PQcmdTuples(answer.get());
    rows_affected_ = text::ParseNumber<std::int64_t>(changed).value_or(-1);
  }
  rows_ = std::make_unique<ResultRows>(std::move(answer), description_->columns->size());
}

/// With a form that is not limited, the rows to skip are fetched and skipped here.
void Cursor::Open() {
  state_ = State::kRunning;
  scratch_.resize(description_->columns->size());
  if (statement_->form != Form::kPlain) return;
  for (std::int64_t i = 0; i < offset_ && rows_->Next(); ++i) {
  }
}

/// Whether the statement was not run, and can be run in another way.
bool Cursor::MayRunAgain(const Error& error, bool was_prepared) {
  if (link_.IsDead() || link_.Transaction() == PQTRANS_INERROR) return false;
  if (Has(kUnprepared, error) && (was_prepared || error.SqlState() == "42P05")) {
    session_.Unprepare(*statement_);
    return true;
  }
  const bool has_keys = !query_->key_order.empty();
  if (has_keys ? !IsOfSyntaxOrNames(error) : query_->form == Form::kPlain || !Has(kUnlimited, error)) {
    return false;
  }
  session_.Unprepare(*query_);
  session_.Keys().Forget();
  statement_ = query_;
  if (!has_keys) query_->form = Form::kPlain;
  query_->key_order.clear();
  query_->has_one_order = false;
  return true;
}

}  // namespace dralo::database::postgresql
