#include "database/client_cursor.h"

#include <algorithm>
#include <utility>

#include "dralo/error.h"

namespace dralo::database {

ClientCursor::ClientCursor(std::unique_ptr<Cursor> cursor, std::int64_t max_records,
                           std::unique_ptr<Cursor> description)
    : cursor_(std::move(cursor)), description_(std::move(description)), max_records_(max_records) {}

void ClientCursor::Load() {
  if (is_loaded_) return;
  std::deque<Row> rows;
  bool has_row = cursor_->Step();
  if (description_) MatchDescription();
  for (; has_row; has_row = cursor_->Step()) {
    if (max_records_ > 0 && std::cmp_greater_equal(rows.size(), max_records_)) {
      // A statement that changes data may fail only at its end, when what it did cannot be kept; so it runs
      // to its end.
      if (cursor_->ChangesData()) continue;
      break;
    }
    Row& row = rows.emplace_back(cursor_->GetColumns()->size());
    for (std::size_t i = 0; i < row.size(); ++i) row[i] = {Own(cursor_->Value(i)), Own(cursor_->Stored(i))};
  }
  cursor_->Stop();
  rest_ = std::move(rows);
  is_loaded_ = true;
}

/// Only after the first step: the tables may have changed since the statements were prepared.
void ClientCursor::MatchDescription() {
  const auto columns = cursor_->GetColumns();
  const bool is_same = std::ranges::equal(*columns, *GetColumns(), {}, &Column::name, &Column::name);
  if (!is_same) description_->FixColumns();
  if (columns->size() == GetColumns()->size()) return;
  cursor_->Stop();
  throw platform::Error("The rows have other columns than the statement that describes them");
}

void ClientCursor::FixColumns() {
  if (is_loaded_) return;
  if (description_) description_->FixColumns();
  cursor_->FixColumns();
}

platform::TypeCode ClientCursor::Type(std::size_t column) const {
  const bool is_described = !is_loaded_ || (*GetColumns())[column].has_declared_type;
  return (is_described ? Described() : *cursor_).Type(column);
}

bool ClientCursor::Skip(std::int64_t rows) { return !is_loaded_ && cursor_->Skip(rows); }

bool ClientCursor::Step() {
  Load();
  if (rest_.empty()) return false;
  current_ = std::move(rest_.front());
  rest_.pop_front();
  return true;
}

void ClientCursor::Stop() noexcept {
  cursor_->Stop();
  rest_.clear();
  is_loaded_ = true;
}

platform::VariantView ClientCursor::Value(std::size_t column) { return View(current_[column].value); }

platform::VariantView ClientCursor::Stored(std::size_t column) {
  const auto& stored = current_[column].stored;
  return stored ? View(*stored) : platform::VariantView{};
}

void ClientCursor::Append(Row row) {
  Stop();
  current_ = std::move(row);
}

}  // namespace dralo::database
