#pragma once

#include <string_view>
#include <vector>

#include "component/property.h"
#include "dralo/variant.h"
#include "hosts/php/script_class.h"

namespace dralo::php {

// Values between scripts and C++. All run as C++: they call the engine through CallPhp() and throw.

void PutText(std::string_view text, zval* result);

/// A decimal becomes its exact text, bytes a string; a date-time "YYYY-MM-DD HH:MM:SS[.fraction]", without
/// the time at midnight, without the date when it has none.
void PutVariant(const platform::VariantView& value, zval* result);

/// null, bool, int, float, string (UTF-8 text) and DateTimeInterface (its own wall clock).
/// Throws ScriptError for any other value.
platform::Variant ToVariant(const zval* value);

/// A list becomes an array numbered from 0; of an array the values are taken in their order, whatever its
/// keys. ToList() throws as ToVariant() does.
void PutList(const std::vector<platform::Variant>& list, zval* result);
std::vector<platform::Variant> ToList(HashTable* array);

/// `holds` is the class of an object property.
void PutPropertyValue(const component::PropertyValue& value, const ScriptClass* holds, zval* result);

/// `value` has the PHP type of a property: bool, int, string, array, an object of the extension, or null for
/// no object.
component::PropertyValue ToPropertyValue(const zval* value);

inline std::string_view View(const zend_string* text) { return {ZSTR_VAL(text), ZSTR_LEN(text)}; }

}  // namespace dralo::php
