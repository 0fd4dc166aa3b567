#include "hosts/php/property_rows.h"

namespace dralo::php {
namespace {

using component::FieldReference;

const zend_function_entry kMethods[] = {ZEND_FE_END};

FieldReference& Reference(const platform::ObjectPtr& owner) { return static_cast<FieldReference&>(*owner); }

void ReadValue(const ScriptProperty&, const platform::ObjectPtr& owner, zval* result) {
  PutVariant(Reference(owner).Get().Value(), result);
}

void WriteValue(const ScriptProperty&, const platform::ObjectPtr& owner, const zval* value) {
  Reference(owner).Get().SetValue(ToVariant(value));
}

}  // namespace

ScriptClass field_class = {.name = "Dralo\\Field", .methods = kMethods};

void RegisterField() {
  RegisterClass(field_class);
  DeclareRows<FieldReference>(field_class, component::FieldProperties());
  // Of any type: the table's types are none of it.
  const ScriptProperty value{component::kFieldValueProperty.name,
                             component::PropertyType::kObject,
                             component::Access::kReadWrite,
                             nullptr,
                             ReadValue,
                             WriteValue};
  const zend_type any = ZEND_TYPE_INIT_MASK(MAY_BE_ANY);
  DeclareProperty(field_class, value, any, component::kFieldValueProperty.doc);
}

}  // namespace dralo::php
