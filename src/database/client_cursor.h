#pragma once

#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "database/cursor.h"

namespace dralo::database {

/// The rows of a statement in the client's own memory. All are read at the first Step(); then the database
/// holds no lock for them, so that others can change the rows while a person edits one. The current row can
/// be changed in memory, and a row be added after the others.
///
/// The rows may have the description of another statement, which is not run: their columns correspond by
/// position, and they are written to its base table.
class ClientCursor final : public Cursor {
 public:
  struct Cell {
    platform::Variant value = {};

    /// As the database compares it; nothing when that is not known, for instance of a default that the
    /// database chose.
    std::optional<platform::Variant> stored = {};
  };
  using Row = std::vector<Cell>;

  /// Keeps at most `max_records` rows; 0 keeps all. `description` may be nullptr.
  ClientCursor(std::unique_ptr<Cursor> cursor, std::int64_t max_records,
               std::unique_ptr<Cursor> description = nullptr);

  /// Runs the statement and reads its rows if that was not done yet. Throws platform::Error when they have
  /// another number of columns than their description.
  void Load();

  std::shared_ptr<const Columns> GetColumns() const override { return Described().GetColumns(); }
  void FixColumns() override;
  platform::TypeCode Type(std::size_t column) const override;
  bool ChangesData() const override { return cursor_->ChangesData(); }
  bool Skip(std::int64_t rows) override;
  bool Step() override;
  void Stop() noexcept override;
  platform::VariantView Value(std::size_t column) override;
  platform::VariantView Stored(std::size_t column) override;
  std::int64_t RowsAffected() const override { return cursor_->RowsAffected(); }
  const BaseTable& Table() override { return Described().Table(); }

  const Cell& At(std::size_t column) const { return current_[column]; }
  void Change(std::size_t column, Cell cell) { current_[column] = std::move(cell); }

  /// Makes `row`, which is the last one, the current row.
  void Append(Row row);

 private:
  void MatchDescription();
  Cursor& Described() const { return description_ ? *description_ : *cursor_; }

  std::unique_ptr<Cursor> cursor_;
  std::unique_ptr<Cursor> description_;
  std::int64_t max_records_;
  bool is_loaded_ = false;
  std::deque<Row> rest_;  ///< The rows after the current one.
  Row current_;
};

}  // namespace dralo::database
