#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "dralo/type_code.h"
#include "dralo/variant.h"

namespace dralo::platform {

/// Returns the SQL condition that the column which a statement calls `name` equals the key value `text`; ""
/// when `text` cannot be a value of the column.
using KeyComparison = std::string (*)(std::string_view name, std::string_view text);

/// One column of a recordset. Owned by its recordset, valid until that is closed, and of its thread.
class Field {
 public:
  virtual ~Field() = default;
  Field(const Field&) = delete;
  Field& operator=(const Field&) = delete;

  /// As the database calls the column of the query; valid as long as the field.
  virtual std::string_view Name() const = 0;

  /// The type that the column declares, or that of its first value; see HasDeclaredType().
  virtual TypeCode Type() const = 0;

  /// A sum of bits such as kFieldIsNullable.
  virtual int Attributes() const = 0;

  /// Characters of a text column, bytes of others; 0 when the column declares none.
  virtual std::int64_t DefinedSize() const = 0;

  /// Bytes of the current value; 0 for Null.
  virtual std::int64_t ActualSize() = 0;

  /// How a record is found by this field where neither "name=number" nor "name='text'" finds it; nullptr
  /// where they do.
  virtual KeyComparison Comparison() const { return nullptr; }

  /// Whether the type is that of the column; else each value has its own, and Type() is that of the first.
  virtual bool HasDeclaredType() const { return true; }

  /// The SQL condition that the column which a statement calls `name` equals the value bound to its "?",
  /// which is of this field's type. Without a declared type the value is a text.
  virtual std::string BoundComparison(std::string_view name) const { return std::string(name) + " = ?"; }

  /// The column's name in the table to which the rows are written, as it stands in a statement; "" when it is
  /// not of that table. Throws Error when the rows cannot be changed.
  virtual std::string BaseName() const { return {}; }

  /// The value in the current row, of the kind that the type code promises where the stored value can be read
  /// so (a date column yields DateTime), else of the stored kind. Valid until the recordset moves or closes.
  /// Throws Error when there is no current row or the value cannot be read.
  virtual VariantView Value() = 0;

  /// Changes the value in the current row of an updatable recordset; Recordset::Update() writes it.
  /// The value is converted to the column's type first. Throws Error when it cannot be, when the recordset is
  /// read-only or when there is no current row; the value is then unchanged.
  virtual void SetValue(const Variant& value) = 0;

 protected:
  Field() = default;
};

}  // namespace dralo::platform

namespace dralo {

using platform::Field;

}  // namespace dralo
