#pragma once

#include <span>

#include "component/database_properties.h"
#include "hosts/php/classes.h"
#include "hosts/php/initial_value.h"
#include "hosts/php/native_object.h"
#include "hosts/php/script_function.h"
#include "hosts/php/values.h"

namespace dralo::php {

/// Declares a property for each row of a table whose rows read and set an `Owner`. `fresh`, when it is given,
/// has the values that new objects begin with.
template <class Owner, class Row>
void DeclareRows(ScriptClass& script_class, std::span<const Row> rows, const Owner* fresh = nullptr) {
  for (const Row& row : rows) {
    ScriptProperty property{.name = row.name, .type = row.type, .row = &row};
    if constexpr (requires { row.is_secret; }) property.is_secret = row.is_secret;
    if (row.get != nullptr) {
      property.read = [](const ScriptProperty& of, const platform::ObjectPtr& owner, zval* result) {
        const component::PropertyValue value =
            static_cast<const Row*>(of.row)->get(static_cast<Owner&>(*owner));
        if (HoldsFunction(of.type)) {
          PutFunction(std::get<platform::ObjectPtr>(value), result);
        } else {
          PutPropertyValue(value, of.holds, result);
        }
      };
    }
    if (row.set != nullptr) {
      property.write = [](const ScriptProperty& of, const platform::ObjectPtr& owner, const zval* value) {
        static_cast<const Row*>(of.row)->set(
            static_cast<Owner&>(*owner),
            HoldsFunction(of.type) ? ToFunction(value, of.type, of.name) : ToPropertyValue(value));
      };
    }
    if constexpr (requires { row.get(*fresh); }) {
      if (fresh != nullptr) property.initial = InitialValue(row, *fresh);
    }
    if (!row.object_class.empty()) property.holds = FindClass(row.object_class);
    DeclareProperty(script_class, property, PhpType(row.type, property.holds), row.doc);
  }
}

/// Declares a property that holds `list_class`, whose objects stand for the same C++ object as the owner.
inline void DeclareList(ScriptClass& script_class, const component::DescribedProperty& list,
                        const ScriptClass& list_class) {
  const ScriptProperty property{.name = list.name,
                                .type = component::PropertyType::kObject,
                                .read = [](const ScriptProperty& of, const platform::ObjectPtr& owner,
                                           zval* result) { PutObject(*of.holds, owner, result); },
                                .holds = &list_class};
  DeclareProperty(script_class, property, PhpType(list_class), list.doc);
}

}  // namespace dralo::php
