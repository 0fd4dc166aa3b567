#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dralo/field.h"
#include "dralo/variant.h"
#include "platform/formatting.h"

namespace dralo::editing {

/// One condition on a key, and the value of its "?" when it has one.
struct KeyTerm {
  std::string condition = "";
  std::optional<platform::Variant> value = {};
};

/// The condition that the column which a statement calls `name` has the value with that key text. The text is
/// read strictly by the type of the column, so that the database has nothing to convert; nothing when no
/// value of the type has that text, and for bytes. What the database finds may still differ, for instance in
/// letter case: the caller compares its key text.
std::optional<KeyTerm> StrictKeyTerm(const platform::Formatting& formatting, const platform::Field& field,
                                     std::string_view name, std::string_view text);

}  // namespace dralo::editing
