#include "hosts/php/property_rows.h"

#include "hosts/php/guard.h"
#include "hosts/php/native_object.h"

namespace dralo::php {

void DeclareList(ScriptClass& script_class, const component::DescribedProperty& list,
                 const ScriptClass& list_class) {
  const ScriptProperty property{.name = list.name,
                                .type = component::PropertyType::kObject,
                                .read = [](const ScriptProperty& of, const platform::ObjectPtr& owner,
                                           zval* result) { PutObject(*of.holds, owner, result); },
                                .holds = &list_class};
  DeclareProperty(script_class, property, PhpType(list_class), list.doc);
}

}  // namespace dralo::php
