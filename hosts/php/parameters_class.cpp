#include <string>

#include "dralo/command.h"
#include "hosts/php/classes.h"
#include "hosts/php/entry_handlers.h"
#include "hosts/php/errors.h"
#include "hosts/php/values.h"

namespace dralo::php {
namespace {

std::vector<platform::Variant>& ParametersOf(const platform::ObjectPtr& owner) {
  return static_cast<platform::Command&>(*owner).parameters;
}

std::size_t ToPosition(const zval* offset, std::size_t end) {
  if (Z_TYPE_P(offset) != IS_LONG) {
    throw ScriptError{zend_ce_type_error, "The number of a parameter must be an int"};
  }
  if (Z_LVAL_P(offset) < 0 || static_cast<zend_ulong>(Z_LVAL_P(offset)) >= end) {
    throw ScriptError{zend_ce_value_error,
                      "There is no parameter number " + std::to_string(Z_LVAL_P(offset))};
  }
  return static_cast<std::size_t>(Z_LVAL_P(offset));
}

void Read(const platform::ObjectPtr& owner, const zval* offset, zval* result) {
  const auto& parameters = ParametersOf(owner);
  PutVariant(platform::View(parameters[ToPosition(offset, parameters.size())]), result);
}

/// The number after the last one adds a parameter, as an offset left out does.
void Write(const platform::ObjectPtr& owner, const zval* offset, const zval* value) {
  auto& parameters = ParametersOf(owner);
  const std::size_t position =
      offset == nullptr ? parameters.size() : ToPosition(offset, parameters.size() + 1);
  platform::Variant parameter = ToVariant(value);
  if (position == parameters.size()) {
    parameters.push_back(std::move(parameter));
  } else {
    parameters[position] = std::move(parameter);
  }
}

bool Has(const platform::ObjectPtr& owner, const zval* offset) {
  return Z_TYPE_P(offset) == IS_LONG && Z_LVAL_P(offset) >= 0 &&
         static_cast<zend_ulong>(Z_LVAL_P(offset)) < ParametersOf(owner).size();
}

std::size_t Count(const platform::ObjectPtr& owner) { return ParametersOf(owner).size(); }

void At(const platform::ObjectPtr& owner, std::size_t position, zval* key, zval* value) {
  ZVAL_LONG(key, static_cast<zend_long>(position));
  PutVariant(platform::View(ParametersOf(owner)[position]), value);
}

constexpr Entries kEntries{.read = Read, .write = Write, .has = Has, .count = Count, .at = At};

}  // namespace

ScriptClass parameters_class = {.name = "Dralo\\Parameters", .methods = kListMethods, .entries = &kEntries};

}  // namespace dralo::php
