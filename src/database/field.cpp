#include "database/field.h"

#include "database/recordset.h"

namespace dralo::database {

namespace {

struct SizeInBytes {
  std::size_t operator()(platform::Null) const { return 0; }
  std::size_t operator()(std::string_view text) const { return text.size(); }
  std::size_t operator()(platform::DecimalView decimal) const { return decimal.text.size(); }
  std::size_t operator()(platform::BytesView bytes) const { return bytes.size; }
  template <class Other>
  std::size_t operator()(const Other& /*value*/) const {
    return sizeof(Other);
  }
};

}  // namespace

std::string_view Field::Name() const { return recordset_.ColumnAt(column_).name; }

platform::TypeCode Field::Type() const { return recordset_.Type(column_); }

int Field::Attributes() const {
  return recordset_.ColumnAt(column_).is_nullable ? platform::kFieldIsNullable : 0;
}

std::int64_t Field::DefinedSize() const { return recordset_.ColumnAt(column_).defined_size; }

std::int64_t Field::ActualSize() { return static_cast<std::int64_t>(std::visit(SizeInBytes{}, Value())); }

platform::KeyComparison Field::Comparison() const { return recordset_.ColumnAt(column_).comparison; }

bool Field::HasDeclaredType() const { return recordset_.ColumnAt(column_).has_declared_type; }

std::string Field::BoundComparison(std::string_view name) const {
  return recordset_.BoundComparison(column_, name);
}

std::string Field::BaseName() const { return recordset_.BaseName(column_); }

platform::VariantView Field::Value() { return recordset_.Value(column_); }

void Field::SetValue(const platform::Variant& value) { recordset_.SetValue(column_, value); }

}  // namespace dralo::database
