#pragma once

#include <string>

#include "database/column.h"
#include "dralo/variant.h"
#include "platform/formatting.h"

namespace dralo::database {

/// Converts `value` to the kind that values of `column` have, so that equal values compare equal: whole
/// numbers, exact decimals in their shortest form, dates without a time where the column keeps none. Text
/// spells numbers with "." as the decimal point, and dates in ISO form or, given `formatting`, in the
/// regional one. Null stays Null, and a column without a declared type takes every value as it is. Returns ""
/// and sets `converted`; or returns why the value is refused and leaves `converted` as it was. The reason
/// does not quote the value, which may be a visitor's input.
std::string Convert(const Column& column, const platform::VariantView& value,
                    const platform::Formatting* formatting, platform::Variant& converted);

}  // namespace dralo::database
