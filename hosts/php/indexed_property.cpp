#include "hosts/php/indexed_property.h"

#include <limits>
#include <memory>
#include <utility>

#include "component/db_view.h"
#include "hosts/php/classes.h"
#include "hosts/php/entry_handlers.h"
#include "hosts/php/errors.h"
#include "hosts/php/guard.h"
#include "hosts/php/native_object.h"
#include "hosts/php/values.h"

namespace dralo::php {
namespace {

using component::DbView;

/// What $view->Name yields.
class BoundProperty final : public platform::Object {
 public:
  BoundProperty(platform::ObjectPtr view, const component::IndexedProperty& bound_row)
      : row(bound_row), view_(std::move(view)) {}

  DbView& View() { return static_cast<DbView&>(*view_); }

  const component::IndexedProperty& row;

 private:
  platform::ObjectPtr view_;
};

BoundProperty& Bound(const platform::ObjectPtr& owner) { return static_cast<BoundProperty&>(*owner); }

std::int16_t ToIndex(zend_long index, std::string_view property) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (index >= Limits::min() && index <= Limits::max()) return static_cast<std::int16_t>(index);
  throw ScriptError{zend_ce_value_error, "The index of " + std::string(property) +
                                             " must be a column or field number, " + std::to_string(index) +
                                             " given"};
}

std::int16_t ToIndex(const zval* offset, std::string_view property) {
  zend_long index = 0;
  if (offset != nullptr && Z_TYPE_P(offset) == IS_LONG) {
    index = Z_LVAL_P(offset);
  } else if (offset == nullptr || Z_TYPE_P(offset) != IS_STRING ||
             is_numeric_string(Z_STRVAL_P(offset), Z_STRLEN_P(offset), &index, nullptr, false) != IS_LONG) {
    throw ScriptError{zend_ce_type_error, "The index of " + std::string(property) + " must be an int"};
  }
  return ToIndex(index, property);
}

void Set(DbView& view, const component::IndexedProperty& row, std::int16_t index, std::string_view text) {
  if (row.set == nullptr) {
    throw ScriptError{zend_ce_error, std::string(row.name) + " is read-only"};
  }
  row.set(view, index, text);
}

void Get(DbView& view, const component::IndexedProperty& row, std::int16_t index, zval* result) {
  const platform::Variant value = row.get(view, index);
  PutVariant(platform::View(value), result);
}

void ReadAt(const platform::ObjectPtr& owner, const zval* offset, zval* result) {
  BoundProperty& bound = Bound(owner);
  Get(bound.View(), bound.row, ToIndex(offset, bound.row.name), result);
}

void WriteAt(const platform::ObjectPtr& owner, const zval* offset, const zval* value) {
  BoundProperty& bound = Bound(owner);
  const std::int16_t index = ToIndex(offset, bound.row.name);
  if (Z_TYPE_P(value) == IS_ARRAY) {
    throw ScriptError{zend_ce_type_error, std::string(bound.row.name) + " must be a string, array given"};
  }
  zend_string* text = nullptr;
  zval converted = *value;
  CallPhp([&] { text = zval_get_string(&converted); });
  const std::string kept(View(text));
  CallPhp([&] { zend_string_release(text); });
  Set(bound.View(), bound.row, index, kept);
}

bool HasAt(const platform::ObjectPtr& owner, const zval* offset) {
  BoundProperty& bound = Bound(owner);
  const platform::Variant value = bound.row.get(bound.View(), ToIndex(offset, bound.row.name));
  const auto* text = std::get_if<std::string>(&value);
  return text == nullptr || !text->empty();
}

constexpr Entries kEntries{.read = ReadAt, .write = WriteAt, .has = HasAt};

void PutBound(const ScriptProperty& property, const platform::ObjectPtr& owner, zval* result) {
  const auto bound =
      std::make_shared<BoundProperty>(owner, *static_cast<const component::IndexedProperty*>(property.row));
  CallPhp([&] { ZVAL_OBJ(result, NewObject(*property.holds, bound)); });
}

const component::IndexedProperty& RowOf(const zend_function* method) {
  const std::string_view name = View(method->common.function_name);
  const auto rows = component::DbViewIndexedProperties();
  std::size_t index = 0;
  while (rows[index].name != name) ++index;
  return rows[index];
}

/// The method form. What it reads or sets is known by the name it was registered under.
void Method(INTERNAL_FUNCTION_PARAMETERS) {
  zend_long index;
  zend_string* text = nullptr;
  const component::IndexedProperty& row = RowOf(EX(func));
  ZEND_PARSE_PARAMETERS_START(1, row.set == nullptr ? 1 : 2)
  Z_PARAM_LONG(index)
  Z_PARAM_OPTIONAL
  Z_PARAM_STR_OR_NULL(text)
  ZEND_PARSE_PARAMETERS_END();
  EnterCpp(text == nullptr ? Entry::kReads : Entry::kChanges, [&] {
    auto& view = NativeAs<DbView>(Z_OBJ_P(ZEND_THIS));
    const std::int16_t number = ToIndex(index, row.name);
    if (text != nullptr) Set(view, row, number, View(text));
    Get(view, row, number, return_value);
  });
}

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(read_arginfo, 0, 1, IS_MIXED, 0)
ZEND_ARG_TYPE_INFO(0, Index, IS_LONG, 0)
ZEND_END_ARG_INFO()

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(read_write_arginfo, 0, 1, IS_STRING, 0)
ZEND_ARG_TYPE_INFO(0, Index, IS_LONG, 0)
ZEND_ARG_TYPE_INFO_WITH_DEFAULT_VALUE(0, Text, IS_STRING, 1, "null")
ZEND_END_ARG_INFO()

void DeclareMethod(ScriptClass& view_class, const component::IndexedProperty& row) {
  const std::string name(row.name);
  const auto* arginfo = row.set == nullptr ? read_arginfo : read_write_arginfo;
  const std::uint32_t arguments = row.set == nullptr ? 1 : 2;
  const zend_function_entry entries[] = {
      FunctionEntry(name.c_str(), Method, arginfo, arguments, ZEND_ACC_PUBLIC), ZEND_FE_END};
  zend_register_functions(view_class.entry, entries, &view_class.entry->function_table, MODULE_PERSISTENT);
}

}  // namespace

ScriptClass indexed_property_class = {
    .name = "Dralo\\IndexedProperty",
    .methods = kArrayAccessMethods,
    .entries = &kEntries,
    .reading = Entry::kReads,
};

void DeclareIndexedProperties(ScriptClass& view_class) {
  for (const auto& row : component::DbViewIndexedProperties()) {
    const ScriptProperty property{.name = row.name,
                                  .type = component::PropertyType::kObject,
                                  .row = &row,
                                  .read = PutBound,
                                  .holds = &indexed_property_class,
                                  .is_shown = false};
    DeclareProperty(view_class, property, PhpType(indexed_property_class), row.doc);
    DeclareMethod(view_class, row);
  }
}

}  // namespace dralo::php
