#include "database/sqlite/cursor.h"

#include <algorithm>
#include <string>
#include <utility>

#include "database/sqlite/binding.h"
#include "database/sqlite/error.h"
#include "database/sqlite/session.h"
#include "database/statement_text.h"

namespace dralo::database::sqlite {

namespace {

using platform::TypeCode;

/// The type of a column without a declared type, by its first value.
TypeCode TypeOf(int storage) {
  switch (storage) {
    case SQLITE_INTEGER:
      return TypeCode::kBigInt;
    case SQLITE_FLOAT:
      return TypeCode::kDouble;
    case SQLITE_BLOB:
      return TypeCode::kLongVarBinary;
    default:
      return TypeCode::kVarWideChar;
  }
}

void StartWithoutRows(sqlite3* connection, Statement& limited) {
  limited.BindLimit(0, 0);
  if (sqlite3_step(limited.Handle()) != SQLITE_DONE) ThrowError(connection, limited.Text());
  limited.Refresh();
  limited.Reset();
}

}  // namespace

Cursor::Cursor(Session& session, std::unique_ptr<Statement> statement, const Query& query)
    : session_(session),
      statement_(std::move(statement)),
      parameters_(query.parameters.begin(), query.parameters.end()),
      max_records_(query.max_records) {
  RequireEqualCounts(static_cast<std::size_t>(statement_->ParameterCount()), parameters_.size(),
                     statement_->Text());
  BindAll();
}

Cursor::~Cursor() {
  statement_->Reset();
  session_.GiveBack(std::move(statement_));
}

/// SQLite notices that tables have changed when a statement starts; with a limit of no rows it starts without
/// reading any.
void Cursor::FixColumns() {
  if (was_stepped_) return;
  if (statement_->GetForm() == Form::kLimited) {
    StartWithoutRows(session_.Handle(), *statement_);
    BindAll();
    return;
  }
  auto probe = statement_->RefusesLimit() ? nullptr : session_.TakeLimited(statement_->Text());
  if (!probe) return;
  StartWithoutRows(session_.Handle(), *probe);
  const bool is_same = *probe->Describe().columns == *statement_->Describe().columns;
  session_.GiveBack(std::move(probe));
  if (is_same) return;
  statement_ = Statement::Prepare(session_.Handle(), statement_->Text());
  BindAll();
}

TypeCode Cursor::Type(std::size_t column) const {
  const Column& described = (*statement_->Describe().columns)[column];
  return described.has_declared_type || first_types_.empty() ? described.type : first_types_[column];
}

void Cursor::TakeTypes() {
  for (int i = 0; std::cmp_less(i, first_types_.size()); ++i) {
    first_types_[static_cast<std::size_t>(i)] = TypeOf(sqlite3_column_type(statement_->Handle(), i));
  }
}

bool Cursor::ChangesData() const { return sqlite3_stmt_readonly(statement_->Handle()) == 0; }

/// Only when all types are declared: other types come from the first value, which must be that of the first
/// row.
bool Cursor::Skip(std::int64_t rows) {
  if (was_stepped_ || !statement_->Describe().has_declared_types) return false;
  if (statement_->GetForm() == Form::kPlain && !Limit()) return false;
  offset_ = rows;
  BindAll();
  return true;
}

/// Replaces the plain statement by the limited one, if that is possible and costs less.
bool Cursor::Limit() {
  if (statement_->RefusesLimit()) return false;
  auto limited = session_.TakeLimited(statement_->Text());
  if (!limited) {
    statement_->RefuseLimit();
    return false;
  }
  const bool pays_off = limited->PaysOff(max_records_);
  if (pays_off) std::swap(statement_, limited);
  limited->Reset();
  session_.GiveBack(std::move(limited));
  return pays_off;
}

void Cursor::StepAhead() noexcept {
  try {
    ahead_ = Step();
  } catch (...) {  // Thrown when the row is asked for.
    ahead_failure_ = std::current_exception();
  }
}

bool Cursor::Step() {
  if (ahead_) return *std::exchange(ahead_, std::nullopt);
  if (ahead_failure_) std::rethrow_exception(std::exchange(ahead_failure_, nullptr));
  if (!was_stepped_) changes_before_ = sqlite3_total_changes64(session_.Handle());
  const int code = session_.Limit().Step(statement_->Handle(), statement_->Text());
  if (code != SQLITE_ROW && code != SQLITE_DONE) {
    was_stepped_ = false;
    ThrowError(session_.Handle(), statement_->Text());
  }
  if (!was_stepped_) AfterFirstStep(code == SQLITE_ROW);
  if (code == SQLITE_DONE) Stop();
  return code == SQLITE_ROW;
}

/// SQLite knows how many rows a statement has changed when the statement ends.
void Cursor::Stop() noexcept {
  sqlite3_reset(statement_->Handle());
  if (!std::exchange(is_running_, false) || !ChangesData()) return;
  sqlite3* const connection = session_.Handle();
  const bool changed = sqlite3_total_changes64(connection) != changes_before_;
  rows_affected_ = changed ? sqlite3_changes64(connection) : 0;
}

platform::VariantView Cursor::Value(std::size_t column) {
  return Read(readers_[column], sqlite3_column_value(statement_->Handle(), static_cast<int>(column)));
}

platform::VariantView Cursor::Stored(std::size_t column) {
  return ReadStored(sqlite3_column_value(statement_->Handle(), static_cast<int>(column)));
}

void Cursor::BindAll() {
  sqlite3_stmt* const handle = statement_->Handle();
  if (Bind(handle, parameters_) != SQLITE_OK) ThrowError(session_.Handle(), statement_->Text());
  if (statement_->GetForm() == Form::kPlain) return;
  const std::int64_t rows = max_records_ > 0 ? std::max<std::int64_t>(max_records_ - offset_, 0) : -1;
  statement_->BindLimit(rows, offset_);
}

void Cursor::AfterFirstStep(bool has_row) {
  was_stepped_ = true;
  is_running_ = true;
  statement_->Refresh();
  const Description& description = statement_->Describe();
  readers_ = description.readers.data();
  if (description.has_declared_types) return;
  for (int i = 0; std::cmp_less(i, description.readers.size()); ++i) {
    first_types_.push_back(TypeOf(has_row ? sqlite3_column_type(statement_->Handle(), i) : SQLITE_NULL));
  }
}

}  // namespace dralo::database::sqlite
