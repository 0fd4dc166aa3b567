#pragma once

#include <span>
#include <string_view>

#include "component/field_reference.h"
#include "component/property.h"
#include "dralo/command.h"
#include "dralo/connection.h"
#include "dralo/recordset.h"

namespace dralo::component {

using RecordsetProperty = Property<platform::Recordset, platform::Recordset>;
using FieldProperty = Property<FieldReference, FieldReference>;

/// The properties of the database objects that pages work with.
std::span<const Property<platform::Connection>> ConnectionProperties();
std::span<const RecordsetProperty> RecordsetProperties();
std::span<const Property<platform::Command>> CommandProperties();

/// All but Value, which is of any type: see platform::Field::Value() and SetValue().
std::span<const FieldProperty> FieldProperties();

/// A property that is only described here; each host binds it in its own way.
struct DescribedProperty {
  std::string_view name;
  std::string_view doc;
};

/// Lists, which are read as owner.Name[offset].
inline constexpr DescribedProperty kFieldsProperty{
    "Fields", "The columns in the order of the query, by name in any letter case or by position from 0."};
inline constexpr DescribedProperty kParametersProperty{
    "Parameters", "The values of the \"?\" in the statement, in their order; the first is number 0."};

inline constexpr DescribedProperty kFieldValueProperty{
    "Value",
    "The value in the current row: null, bool, int, float or string; a decimal is the exact string, a "
    "date-time \"YYYY-MM-DD HH:MM:SS\" (\"YYYY-MM-DD\" at midnight). Update() writes what was assigned."};

}  // namespace dralo::component
