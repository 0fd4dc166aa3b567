#include "hosts/php/change_class.h"

#include <span>
#include <string>
#include <vector>

#include "hosts/php/errors.h"
#include "hosts/php/guard.h"
#include "hosts/php/native_object.h"
#include "hosts/php/values.h"

namespace dralo::php {

class LentChange::Reference final : public platform::Object {
 public:
  explicit Reference(platform::Change& change) : change_(&change) {}

  void End() { change_ = nullptr; }

  platform::Change& Get() const {
    if (change_ == nullptr) throw ScriptError{zend_ce_error, "This change is over"};
    return *change_;
  }

 private:
  platform::Change* change_;
};

/// What scripts reach of a change.
struct ChangeMembers {
  static platform::Change& Of(const platform::ObjectPtr& native) {
    return static_cast<LentChange::Reference&>(*native).Get();
  }
};

namespace {

void PutValues(const std::vector<platform::NamedValue>& values, zval* result) {
  CallPhp([&] { array_init(result); });
  for (const platform::NamedValue& named : values) {
    zval value;
    PutVariant(platform::View(named.value), &value);
    CallPhp([&] { add_assoc_zval_ex(result, named.name.data(), named.name.size(), &value); });
  }
}

template <auto Read>
void PutValuesOf(const ScriptProperty&, const platform::ObjectPtr& owner, zval* result) {
  PutValues((ChangeMembers::Of(owner).*Read)(), result);
}

void PutOperation(const ScriptProperty&, const platform::ObjectPtr& owner, zval* result) {
  PutText(ChangeMembers::Of(owner).Operation(), result);
}

void Set(INTERNAL_FUNCTION_PARAMETERS) {
  zend_string* field;
  zval* value;
  ZEND_PARSE_PARAMETERS_START(2, 2)
  Z_PARAM_STR(field)
  Z_PARAM_ZVAL(value)
  ZEND_PARSE_PARAMETERS_END();
  EnterCpp(Entry::kReads,
           [&] { ChangeMembers::Of(NativeOf(Z_OBJ_P(ZEND_THIS))).Set(View(field), ToVariant(value)); });
}

void Refuse(INTERNAL_FUNCTION_PARAMETERS) {
  zend_string* field;
  zend_string* message;
  ZEND_PARSE_PARAMETERS_START(2, 2)
  Z_PARAM_STR(field)
  Z_PARAM_STR(message)
  ZEND_PARSE_PARAMETERS_END();
  EnterCpp(Entry::kReads,
           [&] { ChangeMembers::Of(NativeOf(Z_OBJ_P(ZEND_THIS))).Refuse(View(field), View(message)); });
}

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(set_arginfo, 0, 2, IS_VOID, 0)
ZEND_ARG_TYPE_INFO(0, Field, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, Value, IS_MIXED, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(refuse_arginfo, 0, 2, IS_VOID, 0)
ZEND_ARG_TYPE_INFO(0, Field, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, Message, IS_STRING, 0)
ZEND_END_ARG_INFO()

// clang-format off
const zend_function_entry kMethods[] = {
    SCRIPT_FUNCTION("Set", Set, set_arginfo, ZEND_ACC_PUBLIC)
    SCRIPT_FUNCTION("Refuse", Refuse, refuse_arginfo, ZEND_ACC_PUBLIC)
    ZEND_FE_END};
// clang-format on

using Reader = decltype(ScriptProperty::read);

void DeclareReader(ScriptClass& script_class, std::string_view name, Reader read, std::uint32_t type,
                   std::string_view doc) {
  const ScriptProperty property{.name = name, .type = component::PropertyType::kText, .read = read};
  DeclareProperty(script_class, property, ZEND_TYPE_INIT_MASK(type), doc);
}

void DeclareMembers(ScriptClass& registered) {
  using platform::Change;
  DeclareReader(registered, "Operation", PutOperation, MAY_BE_STRING, "insert, update or delete.");
  DeclareReader(registered, "Key", PutValuesOf<&Change::Key>, MAY_BE_ARRAY,
                "The key fields by name; none of a record that is not inserted yet.");
  DeclareReader(registered, "Old", PutValuesOf<&Change::Old>, MAY_BE_ARRAY,
                "The fields as they are stored, by name; none of an insert.");
  DeclareReader(registered, "Values", PutValuesOf<&Change::Values>, MAY_BE_ARRAY,
                "The fields as they will be stored, by name; none of a delete.");
}

}  // namespace

ScriptClass change_class = {
    .name = "Dralo\\Change", .methods = kMethods, .reading = Entry::kReads, .declare = DeclareMembers};

LentChange::LentChange(platform::Change& change) : reference_(std::make_shared<Reference>(change)) {}

LentChange::~LentChange() { reference_->End(); }

zend_object* LentChange::NewScriptObject() const { return NewObject(change_class, reference_); }

}  // namespace dralo::php
