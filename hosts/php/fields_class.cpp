#include <memory>
#include <optional>

#include "component/field_reference.h"
#include "hosts/php/classes.h"
#include "hosts/php/entry_handlers.h"
#include "hosts/php/errors.h"
#include "hosts/php/guard.h"
#include "hosts/php/native_object.h"
#include "hosts/php/values.h"
#include "text/letter_case.h"

namespace dralo::php {
namespace {

using platform::Recordset;

std::span<platform::Field* const> FieldsOf(const platform::ObjectPtr& owner) {
  auto& recordset = static_cast<Recordset&>(*owner);
  if (!recordset.IsOpen()) throw platform::Error("The recordset is closed");
  return recordset.Fields();
}

std::optional<std::size_t> PositionOf(std::span<platform::Field* const> fields, std::string_view name) {
  for (std::size_t position = 0; position < fields.size(); ++position) {
    if (text::EqualIgnoringCase(fields[position]->Name(), name)) return position;
  }
  return std::nullopt;
}

std::optional<std::size_t> PositionOf(std::span<platform::Field* const> fields, const zval* offset) {
  if (Z_TYPE_P(offset) == IS_STRING) return PositionOf(fields, View(Z_STR_P(offset)));
  if (Z_TYPE_P(offset) != IS_LONG) {
    throw ScriptError{zend_ce_type_error, "A field is found by its name or by its position from 0"};
  }
  const auto position = static_cast<zend_ulong>(Z_LVAL_P(offset));
  return position < fields.size() ? std::optional<std::size_t>(position) : std::nullopt;
}

void PutField(const platform::ObjectPtr& owner, std::size_t position, zval* result) {
  const platform::ObjectPtr reference =
      std::make_shared<component::FieldReference>(std::static_pointer_cast<Recordset>(owner), position);
  CallPhp([&] { ZVAL_OBJ(result, NewObject(field_class, reference)); });
}

void Read(const platform::ObjectPtr& owner, const zval* offset, zval* result) {
  const auto position = PositionOf(FieldsOf(owner), offset);
  if (!position) throw platform::Error("The recordset has no such field");
  PutField(owner, *position, result);
}

bool Has(const platform::ObjectPtr& owner, const zval* offset) {
  return PositionOf(FieldsOf(owner), offset).has_value();
}

std::size_t Count(const platform::ObjectPtr& owner) { return FieldsOf(owner).size(); }

void At(const platform::ObjectPtr& owner, std::size_t position, zval* key, zval* value) {
  PutField(owner, position, value);
  PutText(FieldsOf(owner)[position]->Name(), key);
}

constexpr Entries kEntries{.read = Read, .has = Has, .count = Count, .at = At};

}  // namespace

ScriptClass fields_class = {.name = "Dralo\\Fields", .methods = kListMethods, .entries = &kEntries};

}  // namespace dralo::php
