#include "hosts/php/classes.h"

#include <array>
#include <cstring>
#include <string>

#include "hosts/php/class_constants.h"
#include "hosts/php/engine_release.h"
#include "hosts/php/errors.h"
#include "hosts/php/guard.h"
#include "hosts/php/process.h"
#include "hosts/php/values.h"
#include "text/letter_case.h"

namespace dralo::php {
namespace {

constexpr auto kClasses = std::to_array<ScriptClass*>({
    &db_view_class,
    &db_connection_class,
    &connection_class,
    &recordset_class,
    &command_class,
    &fields_class,
    &field_class,
    &parameters_class,
    &indexed_property_class,
    &change_class,
    &page_class,
});

void ThrowWhyNotHere() { zend_throw_exception(exception_class, WhyNotHere().c_str(), 0); }

zend_object* RefuseToRun(zend_class_entry* entry) {
  ThrowWhyNotHere();
  return zend_objects_new(entry);
}

void DeclareConstants(const ScriptClass& script_class) {
  const std::string_view php_class = std::string_view(script_class.name).substr(std::strlen("Dralo\\"));
  for (const ClassConstant& constant : kClassConstants) {
    if (constant.php_class != php_class) continue;
    zval value;
    ZVAL_LONG(&value, constant.value);
    zend_string* name = zend_string_init_interned(constant.name.data(), constant.name.size(), true);
    const std::string comment = "/** " + std::string(constant.doc) + " */";
    zend_string* doc = zend_string_init_interned(comment.data(), comment.size(), true);
    zend_declare_class_constant_ex(script_class.entry, name, &value, ZEND_ACC_PUBLIC, doc);
  }
}

void CreateObject(INTERNAL_FUNCTION_PARAMETERS) {
  zend_string* identifier;
  ZEND_PARSE_PARAMETERS_START(1, 1)
  Z_PARAM_STR(identifier)
  ZEND_PARSE_PARAMETERS_END();
  if (!WhyNotHere().empty()) {
    ThrowWhyNotHere();
    return;
  }
  const ScriptClass* script_class = nullptr;
  EnterCpp(Entry::kReads, [&] {
    script_class = FindClass(View(identifier));
    // Throws, and says what is wrong with the identifier.
    if (script_class == nullptr) TheEnvironment().CreateObject(View(identifier));
  });
  if (script_class != nullptr) object_init_ex(return_value, script_class->entry);
}

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(create_object_arginfo, 0, 1, IS_OBJECT, 0)
ZEND_ARG_TYPE_INFO(0, ProgrammaticIdentifier, IS_STRING, 0)
ZEND_END_ARG_INFO()

}  // namespace

const zend_function_entry kFunctions[] = {
    SCRIPT_FUNCTION("Dralo\\CreateObject", CreateObject, create_object_arginfo, 0) ZEND_FE_END};

void RegisterClasses() {
  for (ScriptClass* script_class : kClasses) {
    RegisterClass(*script_class);
    DeclareConstants(*script_class);
  }
}

void RegisterRefusingClasses() {
  for (const ScriptClass* script_class : kClasses) {
    zend_class_entry entry;
    INIT_CLASS_ENTRY_EX(entry, script_class->name, strlen(script_class->name), nullptr);
    zend_class_entry* registered = zend_register_internal_class(&entry);
    registered->ce_flags |= ZEND_ACC_FINAL;
    registered->create_object = RefuseToRun;
  }
}

const ScriptClass& ClassOf(const zend_class_entry* entry) {
  std::size_t index = 0;
  while (kClasses[index]->entry != entry) ++index;
  return *kClasses[index];
}

const ScriptClass* FindClass(std::string_view identifier) {
  for (const ScriptClass* script_class : kClasses) {
    if (!script_class->identifier.empty() && text::EqualIgnoringCase(script_class->identifier, identifier)) {
      return script_class;
    }
  }
  return nullptr;
}

}  // namespace dralo::php
