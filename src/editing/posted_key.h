#pragma once

#include <string>

#include "editing/query_schema.h"
#include "shell/render.h"

namespace dralo::editing {

/// The condition for the record whose key stands in the posted inputs of the key fields. Unlike those of
/// other fields they may come in the query string too, and blanks around them do not count. `schema` is that
/// of EditSQL. Throws platform::Error when it has fewer columns than there are keys.
std::string PostedKeyCondition(const shell::Render& render, const QuerySchema& schema);

}  // namespace dralo::editing
