#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "database/base_table.h"
#include "database/column.h"
#include "dralo/variant.h"

namespace dralo::database {

/// A prepared statement and its position in the rows it yields: before the first row until the first Step().
/// Must not outlive its session. Every function may throw platform::Error with the statement as its source.
class Cursor {
 public:
  virtual ~Cursor() = default;
  Cursor(const Cursor&) = delete;
  Cursor& operator=(const Cursor&) = delete;

  /// The columns; none when the statement yields no rows. Another object after FixColumns() or the first
  /// Step() when the tables were changed since the statement was prepared.
  virtual std::shared_ptr<const Columns> GetColumns() const = 0;

  /// Before the first Step(): makes sure that the columns are those that the tables have now. May run the
  /// statement. Nothing to do where a statement for changes is always prepared anew.
  virtual void FixColumns() {}

  /// The type of a column. Without a declared type it is known after the first Step().
  virtual platform::TypeCode Type(std::size_t column) const = 0;

  /// Takes the types of columns without a declared one from the current row, if the rows are still in the
  /// database.
  virtual void TakeTypes() {}

  /// Whether running the statement may change the database.
  virtual bool ChangesData() const = 0;

  /// Before the first Step(): makes the database skip `rows` rows. Returns false, and has done nothing, when
  /// that would change the result.
  virtual bool Skip(std::int64_t rows) = 0;

  /// Goes to the next row, or runs a statement without rows. False at the end.
  virtual bool Step() = 0;

  /// Ends the statement and gives up its locks; then there is no row any more.
  virtual void Stop() noexcept = 0;

  /// The value in the current row, of the kind that the type promises where it can be read so.
  /// Valid until the next Step() or Stop().
  virtual platform::VariantView Value(std::size_t column) = 0;

  /// The value in the current row as the database stores and compares it. Valid like Value().
  virtual platform::VariantView Stored(std::size_t column) = 0;

  /// Rows changed by the statement, once it has run; -1 when the database does not tell.
  virtual std::int64_t RowsAffected() const = 0;

  /// The table that the rows can be written to. Throws platform::Error, which says why, when there is none.
  virtual const BaseTable& Table() = 0;

 protected:
  Cursor() = default;
};

}  // namespace dralo::database
