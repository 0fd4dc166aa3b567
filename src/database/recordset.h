#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/client_cursor.h"
#include "database/connection.h"
#include "database/cursor.h"
#include "database/field.h"
#include "database/row_writer.h"
#include "dralo/recordset.h"
#include "platform/formatting.h"

namespace dralo::database {

/// A recordset over a provider's cursor. While it is open it keeps its connection alive.
///
/// Rows that can be edited, and rows of statements that change data, are all read into memory when the first
/// is asked for; other rows are read from the running statement one by one.
class Recordset final : public platform::Recordset {
 public:
  /// See Connection.
  explicit Recordset(const platform::Formatting* formatting) : formatting_(formatting) {}
  ~Recordset() override;

  void SetMaxRecords(std::int64_t rows) override;
  std::int64_t MaxRecords() const override { return max_records_; }
  void SetCursorLocation(platform::CursorLocation location) override;
  platform::CursorLocation Location() const override { return location_; }
  void SetUpdateCriteria(platform::UpdateCriteria criteria) override { criteria_ = criteria; }
  void SetIdentity(platform::RecordIdentity identity) override { identity_ = std::move(identity); }
  void SetCounting(std::string statement, std::vector<platform::Variant> parameters = {}) override {
    counting_ = std::move(statement);
    counting_parameters_ = std::move(parameters);
  }
  void Open(std::string_view sql, const std::shared_ptr<platform::Connection>& connection,
            platform::CursorType cursor = platform::CursorType::kForwardOnly,
            platform::LockType lock = platform::LockType::kReadOnly, int options = -1) override;
  void Open(platform::Command& command, platform::CursorType cursor = platform::CursorType::kForwardOnly,
            platform::LockType lock = platform::LockType::kReadOnly, int options = -1) override;
  void OpenDescribed(platform::Command& described, platform::Command& rows) override;
  bool IsOpen() const override { return position_ != Position::kClosed; }
  platform::Variant Counted() override;
  bool Eof() override;
  void MoveNext() override;
  void Move(std::int64_t rows) override;
  std::span<platform::Field* const> Fields() override;
  void AddNew() override;
  void TakeTypesOfRow() override;
  void Update() override;
  void LockRow() override;
  void CancelUpdate() override;
  void Close() override;

  /// Opens read-only. Stays closed when the statement yields no rows. Returns the number of rows changed.
  std::int64_t Run(std::shared_ptr<Connection> connection, std::string_view sql, int options);

  // For the fields; `column` counts from 0 and is always below the number of fields.
  const Column& ColumnAt(std::size_t column) const { return (*columns_)[column]; }
  platform::TypeCode Type(std::size_t column);
  void SetValue(std::size_t column, const platform::Variant& value);
  std::string BoundComparison(std::size_t column, std::string_view name) const;
  std::string BaseName(std::size_t column) const;

  platform::VariantView Value(std::size_t column) {
    if (position_ == Position::kOnRow && !edit_) [[likely]]
      return cursor_->Value(column);
    return EditedValue(column);
  }

 private:
  enum class Position { kClosed, kBeforeFirst, kOnRow, kAtEnd };

  /// A new row, or changes of the current one, not written yet.
  struct Edit {
    bool is_new;
    AssignedValues values;
  };

  std::int64_t Start(std::shared_ptr<Connection> connection, Query query);
  void Take(std::shared_ptr<Connection> connection, std::unique_ptr<Cursor> cursor);
  void RequireClosed() const;
  void RequireOpen() const;
  void RequireNoEdit() const;
  ClientCursor& RequireUpdatable() const;
  bool IsOnRow();
  void Advance();
  void LearnColumns();
  void VerifyColumns();
  void AdoptColumns();
  platform::VariantView EditedValue(std::size_t column);
  bool IsCurrentValue(std::size_t column, const platform::Variant& value);

  const platform::Formatting* formatting_;
  std::int64_t max_records_ = 0;
  platform::CursorLocation location_ = platform::CursorLocation::kServer;
  platform::UpdateCriteria criteria_ = platform::UpdateCriteria::kChangedColumns;
  platform::RecordIdentity identity_;
  std::string counting_;
  std::vector<platform::Variant> counting_parameters_;
  std::optional<platform::Variant> counted_;

  Position position_ = Position::kClosed;
  std::shared_ptr<Connection> connection_;
  std::unique_ptr<Cursor> cursor_;
  ClientCursor* updatable_ = nullptr;  ///< The cursor, when rows can be changed.
  std::int64_t passed_ = 0;            ///< Rows before the current one.
  std::optional<Edit> edit_;

  // Made when they are first asked for. Kept after Close(), so that a field that is still in use fails
  // instead of dangling.
  std::shared_ptr<const Columns> columns_;
  std::deque<Field> fields_;
  std::vector<platform::Field*> field_pointers_;
};

}  // namespace dralo::database
