#pragma once

#include <cstddef>

#include "dralo/field.h"

namespace dralo::database {

class Recordset;

/// A column of a recordset, which does the work.
class Field final : public platform::Field {
 public:
  Field(Recordset& recordset, std::size_t column) : recordset_(recordset), column_(column) {}

  std::string_view Name() const override;
  platform::TypeCode Type() const override;
  int Attributes() const override;
  std::int64_t DefinedSize() const override;
  std::int64_t ActualSize() override;
  platform::KeyComparison Comparison() const override;
  bool HasDeclaredType() const override;
  std::string BoundComparison(std::string_view name) const override;
  std::string BaseName() const override;
  platform::VariantView Value() override;
  void SetValue(const platform::Variant& value) override;

 private:
  Recordset& recordset_;
  const std::size_t column_;
};

}  // namespace dralo::database
