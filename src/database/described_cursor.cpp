#include "database/described_cursor.h"

#include <utility>

#include "dralo/error.h"

namespace dralo::database {

DescribedCursor::DescribedCursor(std::unique_ptr<Cursor> description, std::unique_ptr<Cursor> rows)
    : description_(std::move(description)), rows_(std::move(rows)) {
  if (description_->GetColumns()->size() != rows_->GetColumns()->size())
    throw platform::Error("The rows have other columns than the statement that describes them");
}

void DescribedCursor::FixColumns() {
  description_->FixColumns();
  rows_->FixColumns();
}

platform::TypeCode DescribedCursor::Type(std::size_t column) const {
  const Cursor& known = (*GetColumns())[column].has_declared_type ? *description_ : *rows_;
  return known.Type(column);
}

}  // namespace dralo::database
