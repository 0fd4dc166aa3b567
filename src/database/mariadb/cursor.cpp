#include "database/mariadb/cursor.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include "database/date_text.h"
#include "database/mariadb/base_table.h"
#include "database/mariadb/session.h"
#include "database/statement_text.h"

namespace dralo::database::mariadb {

namespace {

using std::chrono::nanoseconds;

/// By default a server gives the client a minute to read what it sends, and the statement 30 seconds to end.
constexpr std::chrono::seconds kPatienceOfServers{5};

/// Reading so much takes less time than opening a connection.
constexpr int kShortRestRows = 500;
constexpr std::size_t kShortRestBytes = 262'144;
constexpr std::chrono::milliseconds kShortRestTime{100};

/// Exact to a few milliseconds, at a fraction of the cost of the exact time: every row asks for it.
nanoseconds Now() {
  timespec now{};
  clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
  return std::chrono::seconds(now.tv_sec) + nanoseconds(now.tv_nsec);
}

/// A part of the time that the server gives the statement, so that the rest of the rows can be read in what
/// is left.
nanoseconds PatienceWith(std::chrono::seconds query_timeout) {
  if (query_timeout.count() == 0) return kPatienceOfServers;
  return std::min<nanoseconds>(kPatienceOfServers, nanoseconds(query_timeout) / 4);
}

}  // namespace

Cursor::Cursor(Session& session, const Query& query)
    : session_(session),
      text_(query.text),
      kind_(KindOf(query.text)),
      max_records_(query.max_records),
      parameters_(query.parameters) {
  RequireStatement(text_);
  session_.Reconnecting(kind_, [this] { Open(); });
  RequireEqualCounts(statement_->ParameterCount(), parameters_.Count(), text_);
  if (!kind_.is_query) Execute();
}

Cursor::~Cursor() {
  Stop();
  Abandon();
  session_.GiveBack(std::move(statement_), kind_);
}

void Cursor::Open() {
  std::unique_ptr<Statement> limited;
  if (max_records_ > 0 && kind_.is_select) limited = session_.TakeLimited(text_);
  if (limited && limited->ParameterCount() == parameters_.Count()) {
    statement_ = std::move(limited);
    return;
  }
  statement_ = session_.TakePlain(text_, kind_);
  if (max_records_ > 0) statement_->RefuseLimit();
}

void Cursor::Execute() {
  session_.Settle();
  if (!statement_->IsOfThisConnection()) Open();
  const bool has_limit = statement_->GetForm() == Form::kLimited;
  const std::int64_t rows = std::max<std::int64_t>(max_records_ - offset_, 0);
  session_.Expect(kind_, text_);
  statement_->Execute(parameters_.Bind(has_limit, rows, offset_));
  session_.Note(kind_, statement_->LastIdentity());
  state_ = State::kDone;
  if (GetColumns()->empty()) return;
  row_ = std::make_unique<Row>(statement_->Describe().readers);
  statement_->Bind(*row_);
  state_ = State::kReading;
  session_.GetLink().SetReader(this);
  patience_ends_ = Now() + PatienceWith(session_.GetLink().QueryTimeout());
}

/// Needed only for a statement from the cache; the columns are those of its last run. It stays when none can
/// be prepared instead.
void Cursor::FixColumns() {
  if (state_ != State::kPrepared || !statement_->WasKept()) return;
  session_.Forget(text_);
  session_.Reconnecting(kind_, [this] { Open(); });
}

/// Only with a limit in the statement; otherwise the caller reads the rows.
bool Cursor::Skip(std::int64_t rows) {
  if (state_ != State::kPrepared || statement_->GetForm() != Form::kLimited) return false;
  offset_ += rows;
  return true;
}

bool Cursor::Step() {
  if (state_ == State::kPrepared) session_.Reconnecting(kind_, [this] { Execute(); });
  if (state_ == State::kReading) return NextRow();
  return state_ == State::kAside && NextRowAside();
}

bool Cursor::NextRow() {
  if (Now() > patience_ends_) {
    session_.GetLink().PutReadAside();
    return NextRowAside();
  }
  try {
    if (statement_->Fetch(*row_)) return true;
  } catch (...) {
    Stop();
    throw;
  }
  Stop();
  return false;
}

bool Cursor::NextRowAside() {
  if (row_->Load(*aside_)) return true;
  Stop();
  return false;
}

/// The current row stays valid, because it may still be read.
void Cursor::PutRestAside() noexcept {
  state_ = State::kAside;
  aside_.emplace();
  try {
    Row next(statement_->Describe().readers);
    statement_->Bind(next);
    while (statement_->Fetch(next)) next.Save(*aside_);
  } catch (...) {
    aside_->EndBy(std::current_exception());
    Abandon();
  }
}

void Cursor::Stop() noexcept {
  const bool is_reading = state_ == State::kReading;
  state_ = State::kDone;
  aside_.reset();
  if (!is_reading) return;
  session_.GetLink().SetReader(nullptr);
  try {
    Leave();
  } catch (const std::exception&) {
    static_cast<void>(session_.Leave());  // The next statement reports what is wrong with the connection.
    Abandon();
  }
}

/// The rest of a result that cannot be read must not be taken for the answer to the next statement.
void Cursor::Abandon() noexcept {
  if (!statement_->HasOpenResult() || session_.Leave()) return;
  try {
    statement_->Finish();
  } catch (const std::exception&) {
    session_.GetLink().Drop();
  }
}

void Cursor::Leave() {
  std::optional<Link::Haste> haste;
  if (session_.MayLeave()) haste.emplace(session_.GetLink(), kShortRestTime);
  bool has_row = true;
  std::size_t bytes = 0;
  for (int rows = 0; has_row && rows < kShortRestRows && bytes < kShortRestBytes; ++rows) {
    has_row = statement_->Fetch(*row_);
    bytes += row_->ByteCount();
  }
  haste.reset();
  if (has_row && !session_.Leave()) statement_->Finish();
}

platform::VariantView Cursor::Stored(std::size_t column) {
  const platform::VariantView value = row_->Value(column);
  const auto* const time = std::get_if<platform::DateTime>(&value);
  if (time == nullptr || !time->HasZeroDate()) return value;
  return stored_texts_[column] = StoredText(*time, (*GetColumns())[column].time_parts);
}

const BaseTable& Cursor::Table() {
  if (!table_) table_ = FindBaseTable(session_, *GetColumns(), text_);
  return *table_;
}

}  // namespace dralo::database::mariadb
