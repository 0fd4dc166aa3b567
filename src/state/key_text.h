#pragma once

#include <string>
#include <string_view>

#include "dralo/field.h"
#include "dralo/variant.h"
#include "platform/formatting.h"

namespace dralo::state {

/// The text that stands for the field's value in a primary key: in links, in forms and, from there, in
/// statements. It is the same under all regional settings: numbers with "." in their shortest exact form,
/// booleans 1 and 0, times of day HH:MM:SS, dates YYYY-MM-DD and, unless it is midnight, a blank and the
/// time. Null and bytes have no text: "". Stands in `scratch`, whose content is replaced, in the record, or
/// is a constant. Throws platform::Error when the value cannot be read.
std::string_view KeyText(platform::Field& field, std::string& scratch);

/// The same for a value that was read already, or is in no record. Of the type matters kDbTime, whose dates
/// are times of day.
std::string_view KeyText(const platform::VariantView& value, platform::TypeCode type, std::string& scratch);

/// The value of that type whose key text is exactly `text`. Without such a value the text itself: the field
/// may hold one that is not of its type.
platform::Variant KeyValue(const platform::Formatting& formatting, platform::TypeCode type,
                           std::string_view text);

}  // namespace dralo::state
