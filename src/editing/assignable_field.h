#pragma once

#include <optional>
#include <string_view>

#include "dralo/field.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

/// Whether a save of a hardened page may give the field, which is at the 0-based `position`, what was posted:
/// a field that the form shows for editing, of the table that is written to, and no bytes. A key is given to
/// new records only. A field that was not posted is none, unless it is a box, which posts nothing when it is
/// not ticked. Throws platform::Error when the records cannot be changed.
bool MayBeAssigned(const state::Render& render, const platform::Field& field, int position, bool is_new,
                   std::optional<std::string_view> posted);

/// Whether the field has no lookup, or the posted text is one of its options.
bool IsOfferedByLookup(const state::Render& render, std::string_view field_name, std::string_view posted);

}  // namespace dralo::editing
