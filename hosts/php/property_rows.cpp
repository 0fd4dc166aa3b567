#include "hosts/php/property_rows.h"

#include "hosts/php/guard.h"
#include "hosts/php/native_object.h"

namespace dralo::php {

void DeclareList(ScriptClass& script_class, const component::DescribedProperty& list,
                 const ScriptClass& list_class) {
  ScriptProperty property{
      list.name,  component::PropertyType::kObject, component::Access::kReadOnly, &list, nullptr, nullptr,
      &list_class};
  property.read = [](const ScriptProperty& of, const platform::ObjectPtr& owner, zval* result) {
    PutObject(*of.holds, owner, result);
  };
  DeclareProperty(script_class, property, PhpType(list_class), list.doc);
}

}  // namespace dralo::php
