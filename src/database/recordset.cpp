#include "database/recordset.h"

#include <algorithm>
#include <string>
#include <utility>

#include "database/conversion.h"
#include "dralo/error.h"

namespace dralo::database {

using platform::Error;
using platform::Variant;
using platform::VariantView;

Recordset::~Recordset() { Close(); }

void Recordset::SetMaxRecords(std::int64_t rows) {
  RequireClosed();
  if (rows < 0) throw Error("The highest number of records must not be negative");
  max_records_ = rows;
}

void Recordset::SetCursorLocation(platform::CursorLocation location) {
  RequireClosed();
  location_ = location;
}

Variant Recordset::Counted() {
  RequireOpen();
  if (counting_.empty()) throw Error("The recordset has no counting statement");
  if (counted_) return *counted_;
  Session& session = connection_->GetSession();
  const Query count{.text = counting_, .parameters = counting_parameters_, .max_records = 1};
  const bool is_beside = position_ == Position::kBeforeFirst && updatable_ == nullptr;
  counted_ = is_beside ? session.CountBeside(count, *cursor_) : session.Ask(count);
  return *counted_;
}

bool Recordset::Eof() {
  RequireOpen();
  if (edit_ && edit_->is_new) return false;
  return !IsOnRow();
}

void Recordset::MoveNext() {
  RequireOpen();
  RequireNoEdit();
  if (!IsOnRow()) throw Error("There is no next record; the recordset is at its end");
  ++passed_;
  Advance();
}

void Recordset::Move(std::int64_t rows) {
  RequireOpen();
  RequireNoEdit();
  if (rows < 0) throw Error("The recordset moves forward only");
  if (rows > 0 && position_ == Position::kBeforeFirst && passed_ == 0 && cursor_->Skip(rows)) {
    passed_ = rows;
    return;
  }
  for (; rows > 0 && IsOnRow(); --rows) {
    ++passed_;
    Advance();
  }
}

std::span<platform::Field* const> Recordset::Fields() {
  RequireOpen();
  if (field_pointers_.empty()) {
    if (!edit_) LearnColumns();
    field_pointers_.reserve(columns_->size());
    for (std::size_t i = 0; i < columns_->size(); ++i) {
      field_pointers_.push_back(&fields_.emplace_back(*this, i));
    }
  }
  return field_pointers_;
}

void Recordset::AddNew() {
  RequireNoEdit();
  RequireUpdatable();
  if (field_pointers_.empty()) VerifyColumns();
  updatable_->Table();
  edit_ = Edit{true, AssignedValues(columns_->size())};
}

void Recordset::TakeTypesOfRow() {
  RequireOpen();
  if (IsOnRow()) cursor_->TakeTypes();
}

void Recordset::Update() {
  RequireOpen();
  if (!edit_) return;
  ClientCursor& cursor = RequireUpdatable();
  if (edit_->is_new) {
    InsertRow(connection_->GetSession(), cursor, edit_->values);
    position_ = Position::kOnRow;
  } else {
    UpdateRow(connection_->GetSession(), cursor, edit_->values, {criteria_, identity_});
  }
  edit_.reset();
}

void Recordset::LockRow() {
  ClientCursor& cursor = RequireUpdatable();
  if (!IsOnRow()) throw Error("There is no current record to lock");
  database::LockRow(connection_->GetSession(), cursor, {criteria_, identity_});
}

void Recordset::CancelUpdate() {
  RequireOpen();
  edit_.reset();
}

void Recordset::Close() {
  if (!IsOpen()) return;
  position_ = Position::kClosed;
  edit_.reset();
  updatable_ = nullptr;
  if (connection_->IsInherited()) static_cast<void>(cursor_.release());
  cursor_.reset();
  connection_->Detach(*this);
  connection_.reset();
}

platform::TypeCode Recordset::Type(std::size_t column) {
  if (ColumnAt(column).has_declared_type || !IsOpen()) return ColumnAt(column).type;
  if (position_ == Position::kBeforeFirst) Advance();
  return cursor_->Type(column);
}

void Recordset::SetValue(std::size_t column, const Variant& value) {
  RequireUpdatable();
  const bool is_new = edit_ && edit_->is_new;
  if (!is_new && !IsOnRow()) throw Error("There is no current record to change");
  const Column& target = ColumnAt(column);
  if (target.origin.empty()) throw Error("The field " + target.name + " is computed and cannot be set");
  Variant converted;
  const std::string refusal = Convert(target, View(value), formatting_, converted);
  if (!refusal.empty()) throw Error("The value for the field " + target.name + " " + refusal);

  if (is_new) {
    edit_->values[column] = std::move(converted);
    return;
  }
  if (!edit_) edit_ = Edit{false, AssignedValues(columns_->size())};
  auto& assigned = edit_->values[column];
  assigned.reset();
  if (!IsCurrentValue(column, converted)) assigned = std::move(converted);
  const auto is_assigned = [](const auto& slot) { return slot.has_value(); };
  if (std::ranges::none_of(edit_->values, is_assigned)) edit_.reset();
}

std::string Recordset::BoundComparison(std::size_t column, std::string_view name) const {
  RequireOpen();
  const Column& compared = ColumnAt(column);
  if (!compared.has_declared_type) return "CAST(" + std::string(name) + " AS TEXT) = ?";
  return EqualByIndex(connection_->GetSession(), compared, std::string(name));
}

std::string Recordset::BaseName(std::size_t column) const {
  return RequireUpdatable().Table().columns[column];
}

void Recordset::RequireClosed() const {
  if (IsOpen()) throw Error("The recordset is open already; close it first");
}

void Recordset::RequireOpen() const {
  if (!IsOpen()) throw Error("The recordset is closed");
}

void Recordset::RequireNoEdit() const {
  if (edit_) throw Error("The record has changes; call Update or CancelUpdate before leaving it");
}

ClientCursor& Recordset::RequireUpdatable() const {
  RequireOpen();
  if (updatable_) return *updatable_;
  throw Error(
      "The recordset is read-only; changes need a client cursor location, a keyset cursor and an optimistic "
      "lock");
}

bool Recordset::IsOnRow() {
  if (position_ == Position::kBeforeFirst) Advance();
  return position_ == Position::kOnRow;
}

/// Reads the next row. When the first row cannot be read, that can be tried again; after a later row the
/// statement would start anew, so the recordset is at its end.
void Recordset::Advance() {
  const bool is_first = position_ == Position::kBeforeFirst;
  if (!is_first) position_ = Position::kAtEnd;
  const bool has_row = (max_records_ == 0 || passed_ < max_records_) && cursor_->Step();
  if (is_first) AdoptColumns();
  position_ = has_row ? Position::kOnRow : Position::kAtEnd;
  if (!has_row) cursor_->Stop();
}

/// The tables may have changed since Open(). The first row shows that, and is usually wanted next; but a
/// recordset for changes may be there only to add a row, and then reads none.
void Recordset::LearnColumns() {
  if (updatable_) return VerifyColumns();
  if (position_ == Position::kBeforeFirst) Advance();
}

void Recordset::VerifyColumns() {
  if (position_ != Position::kBeforeFirst) return;
  cursor_->FixColumns();
  columns_ = cursor_->GetColumns();
}

/// The tables may have changed between Open() and the first row.
void Recordset::AdoptColumns() {
  auto columns = cursor_->GetColumns();
  if (columns == columns_) return;
  const auto same_name = [](const Column& a, const Column& b) { return a.name == b.name; };
  if ((!fields_.empty() || edit_) && !std::ranges::equal(*columns, *columns_, same_name)) {
    position_ = Position::kAtEnd;
    cursor_->Stop();
    throw Error("The table was changed while the recordset was being opened; open it again");
  }
  columns_ = std::move(columns);
}

VariantView Recordset::EditedValue(std::size_t column) {
  RequireOpen();
  if (!edit_ || !edit_->is_new) {
    if (!IsOnRow()) throw Error("There is no current record");
  }
  if (edit_ && edit_->values[column]) return View(*edit_->values[column]);
  return edit_ && edit_->is_new ? VariantView{} : cursor_->Value(column);
}

/// Compares values of the column's kind, so that setting what is stored already is no change.
bool Recordset::IsCurrentValue(std::size_t column, const Variant& value) {
  Variant current;
  return updatable_->At(column).stored &&
         Convert(ColumnAt(column), cursor_->Value(column), formatting_, current).empty() && current == value;
}

}  // namespace dralo::database
