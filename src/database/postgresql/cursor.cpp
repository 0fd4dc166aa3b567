#include "database/postgresql/cursor.h"

#include <algorithm>
#include <span>
#include <utility>

#include "database/postgresql/base_table.h"
#include "database/postgresql/placeholders.h"
#include "dralo/error.h"
#include "text/decimal.h"
#include "text/white_space.h"

namespace dralo::database::postgresql {

namespace {

using platform::Error;
using Rows = Execution::Rows;

/// So many rows are taken as one answer.
constexpr std::int64_t kMaxShortRows = 256;

/// How PostgreSQL refuses to run what it has prepared: for other columns than there are now, not any more,
/// or, behind a pooler, for somebody else.
constexpr std::string_view kUnprepared[] = {"0A000", "26000", "42P05"};

/// How it refuses a query inside of another one that it may accept alone.
constexpr std::string_view kUnlimited[] = {"42601", "0A000", "42P16"};

bool Has(std::span<const std::string_view> states, const Error& error) {
  return std::ranges::find(states, error.SqlState()) != states.end();
}

void RequireText(std::string_view text) {
  if (text::TrimAsciiSpace(text).empty()) throw Error("The statement is empty", 0, {}, std::string(text));
  if (text.find('\0') == text.npos) return;
  throw Error("The statement has a zero byte in its text", 0, {}, std::string(text));
}

Form WantedForm(const Query& query) { return query.max_records == 1 ? Form::kOneRow : Form::kPage; }

}  // namespace

template <class Function>
auto Cursor::WithSource(const Function& run) const {
  try {
    return run();
  } catch (const Error& error) {
    if (!error.Source().empty()) throw;
    throw Error(error.what(), error.Number(), error.SqlState(), statement_->text);
  }
}

Cursor::Cursor(Session& session, const Query& query)
    : session_(session),
      link_(session.GetLink()),
      parameters_(query.parameters),
      key_(StatementCache::KeyOf(query.text, WantedForm(query), parameters_)),
      max_records_(query.max_records),
      is_updatable_(query.is_updatable),
      statement_(is_updatable_ ? nullptr : session.Statements().Find(key_)) {
  if (!statement_) {
    RequireText(query.text);
    statement_ = NewStatement(query.text);
  }
  RequireParameterCount(query.parameters.size());
  description_ = statement_->description;
  Prepare();
}

std::shared_ptr<Statement> Cursor::NewStatement(std::string_view text) const {
  auto statement = std::make_shared<Statement>();
  statement->text = text;
  statement->kind = KindOf(text);
  NumberedStatement numbered = NumberParameters(text);
  statement->numbered = std::move(numbered.text);
  statement->parameters = numbered.parameters;
  if (statement->kind.is_select) statement->form = max_records_ == 1 ? Form::kOneRow : Form::kPage;
  return statement;
}

void Cursor::RequireParameterCount(std::size_t given) const {
  const auto expected = static_cast<std::size_t>(statement_->parameters);
  if (expected == given) return;
  throw Error("The statement expects " + std::to_string(expected) +
                  (expected == 1 ? " parameter value, but " : " parameter values, but ") +
                  std::to_string(given) + (given == 1 ? " was given" : " were given"),
              0, {}, statement_->text);
}

void Cursor::Prepare() {
  const StatementKind& kind = statement_->kind;
  if (!kind.is_query || kind.calls_functions) session_.RunDeferred();
  if (!kind.is_query) return Start();
  const bool is_new = description_ == nullptr;
  if (is_new && !(IsShort() && !is_updatable_)) {
    session_.Reconnecting(kind, [&] { Run(Rows::kNone); });
  }
  const bool is_small = max_records_ == 0 || IsShort();
  if (!is_updatable_ && ((is_new && IsShort()) || (kind.calls_functions && is_small))) {
    Start();
  } else if (!is_updatable_ && IsShort()) {
    session_.Defer(*this);
  }
}

void Cursor::StartEarly() noexcept {
  try {
    if (state_ == State::kPrepared) Start();
  } catch (const std::exception&) {
    state_ = State::kPrepared;
  }
}

bool Cursor::IsShort() const { return 0 < RowsWanted() && RowsWanted() <= kMaxShortRows; }

/// Whether the rows are taken as they come. The form may not limit them.
bool Cursor::IsLong() const {
  if (!statement_->kind.is_select || statement_->form == Form::kOneRow) return false;
  return statement_->form == Form::kPlain || !IsShort();
}

Parameters Cursor::ParametersOfForm() const {
  Parameters parameters = parameters_;
  if (statement_->form != Form::kPage) return parameters;
  parameters.AddNumber(max_records_ == 0 ? std::nullopt : std::optional(RowsWanted()));
  parameters.AddNumber(offset_);
  return parameters;
}

void Cursor::Start() {
  session_.Undefer(*this);
  if (max_records_ > 0 && RowsWanted() <= 0) {
    state_ = State::kDone;
    return;
  }
  session_.Reconnecting(statement_->kind, [&] { Run(Rows::kAll); });
}

void Cursor::Run(Rows rows) {
  for (int attempt = 1;; ++attempt) {
    bool was_prepared = false;
    try {
      link_.Begin();
      was_prepared = statement_->IsPreparedOn(link_);
      session_.GiveName(*statement_);
      const bool is_long = rows != Rows::kNone && IsLong();
      // What parts are taken of has to be known before.
      if (rows == Rows::kNone || (is_long && !description_)) Send(Rows::kNone);
      if (rows != Rows::kNone) Send(is_long ? Rows::kParts : Rows::kAll);
      return;
    } catch (const Error& error) {
      constexpr int kMaxAttempts = 3;
      if (attempt == kMaxAttempts || !MayRunAgain(error, was_prepared)) throw;
    }
  }
}

void Cursor::Send(Rows rows) {
  link_.Begin();
  const bool may_drop = session_.IsReplaceable();
  try {
    WithSource([&] { Send(rows, may_drop); });
  } catch (const Error&) {
    if (rows == Rows::kParts && may_drop && link_.IsDead()) link_.Drop();
    throw;
  }
  if (rows != Rows::kNone) Open();
}

void Cursor::Send(Rows rows, bool may_drop) {
  if (rows != Rows::kNone) session_.Note(statement_->kind, statement_->text);
  const bool is_guarded = session_.NeedsGuard(statement_->kind);
  Execution execution(link_, *statement_, ParametersOfForm(), rows, is_guarded);
  const Result columns = execution.Description();
  if (rows == Rows::kParts) {
    const bool is_known = !columns || description_->IsOf(columns.get());
    const auto count = is_known ? description_->columns->size()
                                : static_cast<std::size_t>(Libpq::Get().PQnfields(columns.get()));
    rows_ = std::make_unique<ResultRows>(link_, execution, count, may_drop);
    rows_->Await();
    // The table was changed since. Asking about it sets the rows aside.
    if (!is_known) Learn(columns);
    return;
  }
  Result answer = rows == Rows::kAll ? execution.All() : nullptr;
  if (columns) Learn(columns);
  if (!answer) return;
  if (ChangesData()) {
    const char* const changed = Libpq::Get().PQcmdTuples(answer.get());
    rows_affected_ = text::ParseNumber<std::int64_t>(changed).value_or(-1);
  }
  rows_ = std::make_unique<ResultRows>(std::move(answer), description_->columns->size());
}

/// A form that is not limited has the rows to pass over, too.
void Cursor::Open() {
  state_ = State::kRunning;
  scratch_.resize(description_->columns->size());
  if (statement_->form != Form::kPlain) return;
  for (std::int64_t i = 0; i < offset_ && rows_->Next(); ++i) {
  }
}

/// Whether the statement was not run, and may be in another way.
bool Cursor::MayRunAgain(const Error& error, bool was_prepared) {
  if (link_.IsDead() || link_.Transaction() == PQTRANS_INERROR) return false;
  if (Has(kUnprepared, error) && (was_prepared || error.SqlState() == "42P05")) {
    session_.Unprepare(*statement_);
    return true;
  }
  if (statement_->form == Form::kPlain || !Has(kUnlimited, error)) return false;
  session_.Unprepare(*statement_);
  statement_->form = Form::kPlain;
  return true;
}

/// Between two trips.
void Cursor::Learn(const Result& answer) {
  Description fresh = Describe(link_, session_.Catalog(), answer.get(), statement_->text);
  if (description_ && *description_->columns == *fresh.columns) fresh.columns = description_->columns;
  const bool is_new = statement_->description == nullptr;
  description_ = statement_->description = std::make_shared<const Description>(std::move(fresh));
  is_description_fresh_ = true;
  // Where rows are written to must be known as it is now.
  const bool may_keep = statement_->kind.is_query && !is_updatable_;
  if (is_new && may_keep) session_.Keep(key_, statement_);
}

/// The server goes on describing what it has prepared as it was.
void Cursor::FixColumns() {
  if (state_ != State::kPrepared || is_description_fresh_) return;
  Statement probe = *statement_;
  probe.name.clear();
  probe.prepared = 0;
  session_.Catalog().Forget();
  WithSource([&] {
    link_.Begin();
    Execution execution(link_, probe, ParametersOfForm(), Rows::kNone, session_.NeedsGuard(probe.kind));
    Learn(execution.Description());
  });
}

bool Cursor::Skip(std::int64_t rows) {
  if (state_ != State::kPrepared || statement_->form == Form::kPlain) return false;
  offset_ += rows;
  return true;
}

bool Cursor::Step() {
  if (state_ == State::kPrepared) Start();
  if (state_ == State::kDone) return false;
  const bool is_at_limit = max_records_ > 0 && rows_read_ >= RowsWanted();
  if (!is_at_limit && WithSource([&] { return rows_->Next(); })) {
    ++rows_read_;
    return true;
  }
  Stop();
  return false;
}

void Cursor::Stop() noexcept {
  session_.Undefer(*this);
  state_ = State::kDone;
  rows_.reset();
}

platform::VariantView Cursor::Value(std::size_t column) {
  const std::string_view text = rows_->Current()[column];
  if (text.data() == nullptr) return {};
  return Read(description_->readings[column], text, scratch_[column]);
}

const BaseTable& Cursor::Table() {
  if (!table_) table_ = WithSource([&] { return FindBaseTable(link_, *description_, statement_->text); });
  return *table_;
}

}  // namespace dralo::database::postgresql
