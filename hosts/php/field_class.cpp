#include "hosts/php/property_rows.h"

namespace dralo::php {
namespace {

using component::FieldReference;

FieldReference& Reference(const platform::ObjectPtr& owner) { return static_cast<FieldReference&>(*owner); }

void ReadValue(const ScriptProperty&, const platform::ObjectPtr& owner, zval* result) {
  PutVariant(Reference(owner).Get().Value(), result);
}

void WriteValue(const ScriptProperty&, const platform::ObjectPtr& owner, const zval* value) {
  Reference(owner).Get().SetValue(ToVariant(value));
}

}  // namespace

ScriptClass field_class = {
    .name = "Dralo\\Field",
    .declare =
        [](ScriptClass& registered) {
          DeclareRows<FieldReference>(registered, component::FieldProperties());
          // Of any type, for which PropertyType has no word.
          const auto& value = component::kFieldValueProperty;
          DeclareProperty(registered,
                          {.name = value.name,
                           .type = component::PropertyType::kObject,
                           .read = ReadValue,
                           .write = WriteValue},
                          ZEND_TYPE_INIT_MASK(MAY_BE_ANY), value.doc);
        },
};

}  // namespace dralo::php
