#pragma once

#include <string_view>
#include <variant>

#include "dralo/variant.h"
#include "editing/query_schema.h"
#include "platform/formatting.h"

namespace dralo::editing {

/// Why a posted text cannot be stored in its field.
enum class Refusal { kRequired, kNoNumber, kNoDate };

/// The value to store for a text that was posted for the field, or why there is none. A field without an
/// input has the empty text. Not for long binary fields, which no input of the form sets.
///
/// - Whole numbers are read as the locale writes them.
/// - In fields with fractions both "," and "." are the decimal point, whatever the locale: "3,5" is 3.5.
///   There is no grouping.
/// - Every text makes a boolean true, the empty one false.
/// - All other texts are for the database layer to convert.
std::variant<platform::Variant, Refusal> FieldValue(const platform::Formatting& regional,
                                                    const SchemaField& field, std::string_view posted);

}  // namespace dralo::editing
