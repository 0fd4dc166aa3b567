#pragma once

#include <span>
#include <string_view>

#include "component/property.h"
#include "hosts/php/field_reference.h"
#include "platform/command.h"
#include "platform/connection.h"
#include "platform/recordset.h"

namespace dralo::php {

/// One property of a database object, as component::Property is one of a view. Reading may move a lazy
/// recordset, so the owner is not constant.
template <class Owner>
struct AdodbProperty {
  std::string_view name;
  component::PropertyType type;
  component::Access access;
  std::string_view doc;
  component::PropertyValue (*get)(Owner& owner);
  void (*set)(Owner& owner, const component::PropertyValue& value);  ///< nullptr when read-only.
  std::string_view object_class = {};
};

std::span<const AdodbProperty<platform::Connection>> ConnectionProperties();
std::span<const AdodbProperty<platform::Recordset>> RecordsetProperties();
std::span<const AdodbProperty<platform::Command>> CommandProperties();

/// Without Value, which is of any type.
std::span<const AdodbProperty<FieldReference>> FieldProperties();

/// A property that holds a list: read as owner->Name[offset].
struct ListProperty {
  std::string_view name;
  std::string_view list_class;  ///< PHP class, in the namespace Dralo.
  std::string_view doc;
};

inline constexpr ListProperty kFieldsProperty{
    "Fields", "Fields",
    "The columns in the order of the query, by name in any letter case or by position from 0."};
inline constexpr ListProperty kParametersProperty{
    "Parameters", "Parameters",
    "The values of the \"?\" in the statement, in their order; the first is number 0."};

inline constexpr std::string_view kFieldValueName = "Value";
inline constexpr std::string_view kFieldValueDoc =
    "The value in the current row: null, bool, int, float or string; a decimal is the exact string, a "
    "date-time "
    "\"YYYY-MM-DD HH:MM:SS\" (\"YYYY-MM-DD\" at midnight). Update() writes what was assigned.";

}  // namespace dralo::php
