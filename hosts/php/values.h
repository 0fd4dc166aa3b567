#pragma once

#include <string_view>

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

/// `holds` is the class of an object property.
void PutPropertyValue(const component::PropertyValue& value, const ScriptClass* holds, zval* result);

/// `value` has the PHP type of a property: bool, int, string, one of our objects, or null for no object.
component::PropertyValue ToPropertyValue(const zval* value);

inline std::string_view View(const zend_string* text) { return {ZSTR_VAL(text), ZSTR_LEN(text)}; }

}  // namespace dralo::php
