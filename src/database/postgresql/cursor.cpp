#include "database/postgresql/cursor.h"

#include <utility>

#include "database/postgresql/base_table.h"
#include "database/postgresql/one_order.h"
#include "database/postgresql/placeholders.h"
#include "database/statement_text.h"

namespace dralo::database::postgresql {

namespace {

using Rows = Execution::Rows;

/// So many rows are fetched as one answer.
constexpr std::int64_t kMaxShortRows = 256;

Form WantedForm(const Query& query) { return query.max_records == 1 ? Form::kOneRow : Form::kPage; }

}  // namespace

Cursor::Cursor(Session& session, const Query& query) : Cursor(session, query, Unsent{}) {
  if (!query.counting.empty()) {
    count_.reset(new Cursor(
        session, {.text = query.counting, .parameters = query.counting_parameters, .max_records = 1},
        Unsent{}));
  }
  Prepare();
}

Cursor::Cursor(Session& session, const Query& query, Unsent /*unused*/)
    : session_(session),
      link_(session.GetLink()),
      parameters_(query.parameters),
      key_(StatementCache::KeyOf(query.text, WantedForm(query), parameters_)),
      max_records_(query.max_records),
      is_updatable_(query.is_updatable),
      query_(is_updatable_ ? nullptr : session.Statements().Find(key_)) {
  if (!query_) {
    RequireStatement(query.text);
    query_ = NewStatement(query.text);
  }
  statement_ = query_;
  RequireEqualCounts(static_cast<std::size_t>(statement_->parameters), query.parameters.size(),
                     statement_->text);
  description_ = statement_->description;
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

void Cursor::Prepare() {
  const StatementKind& kind = statement_->kind;
  if (!kind.is_query || kind.calls_functions) session_.RunDeferred();
  if (!kind.is_query) return Start();
  const bool is_new = description_ == nullptr;
  if (is_new) {
    session_.Reconnecting(
        kind, [&] { statement_->key_order = session_.Keys().BehindOrder(session_, *statement_); });
  }
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

/// Whether the rows are fetched as they come. The form must not limit them.
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

/// To be called between two trips.
void Cursor::Learn(const Result& answer) {
  Description fresh = Describe(link_, session_.Catalog(), answer.get(), statement_->text);
  if (description_ && *description_->columns == *fresh.columns) fresh.columns = description_->columns;
  const bool is_new = query_->description == nullptr;
  description_ = query_->description = std::make_shared<const Description>(std::move(fresh));
  query_->has_one_order = HasOneOrder(*query_, *description_, session_.Catalog());
  // When rows are to be written, their table must be known as it is now.
  const bool may_keep = statement_->kind.is_query && !is_updatable_;
  if (is_new && may_keep) session_.Keep(key_, query_);
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
  const std::string_view text = rows_->Value(column);
  if (text.data() == nullptr) return {};
  return description_->readers[column](text, scratch_[column]);
}

const BaseTable& Cursor::Table() {
  if (table_) return *table_;
  Description now = *description_;
  table_ = WithSource([&] { return FindBaseTable(link_, session_.Catalog(), now, statement_->text); });
  description_ = std::make_shared<const Description>(std::move(now));
  return *table_;
}

}  // namespace dralo::database::postgresql
