#pragma once

#include <optional>
#include <string_view>

#include "dralo/field.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

/// Whether a save on a hardened page may store what was posted for the field, which is at the 0-based
/// `position`: only for a field that the form shows for editing, that belongs to the table that is written
/// to, and that holds no bytes. A key is stored in new records only. A field that was not posted is left
/// alone, unless it is a checkbox, which posts nothing when it is not ticked. Throws platform::Error when the
/// records cannot be changed.
bool MayBeAssigned(const state::Render& render, const platform::Field& field, int position, bool is_new,
                   std::optional<std::string_view> posted);

/// Whether the field has no lookup, or the posted text is one of its options.
bool IsOfferedByLookup(const state::Render& render, std::string_view field_name, std::string_view posted);

}  // namespace dralo::editing
