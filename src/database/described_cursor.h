#pragma once

#include <memory>

#include "database/cursor.h"

namespace dralo::database {

/// The rows of one statement under the description of another: the columns correspond by position, and rows
/// are written to the base table of the other, which is not run.
class DescribedCursor final : public Cursor {
 public:
  /// Throws platform::Error when the numbers of columns differ.
  DescribedCursor(std::unique_ptr<Cursor> description, std::unique_ptr<Cursor> rows);

  std::shared_ptr<const Columns> GetColumns() const override { return description_->GetColumns(); }
  void FixColumns() override;
  platform::TypeCode Type(std::size_t column) const override;
  void TakeTypes() override { rows_->TakeTypes(); }
  bool ChangesData() const override { return rows_->ChangesData(); }
  bool Skip(std::int64_t rows) override { return rows_->Skip(rows); }
  bool Step() override { return rows_->Step(); }
  void Stop() noexcept override { rows_->Stop(); }
  platform::VariantView Value(std::size_t column) override { return rows_->Value(column); }
  platform::VariantView Stored(std::size_t column) override { return rows_->Stored(column); }
  std::int64_t RowsAffected() const override { return rows_->RowsAffected(); }
  const BaseTable& Table() override { return description_->Table(); }

 private:
  std::unique_ptr<Cursor> description_;
  std::unique_ptr<Cursor> rows_;
};

}  // namespace dralo::database
