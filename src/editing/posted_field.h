#pragma once

#include <string_view>

#include "dralo/field.h"
#include "editing/query_schema.h"
#include "settings/settings.h"
#include "state/render.h"

namespace dralo::editing {

/// Whether the edit form shows the field as a select list.
bool IsSelect(const settings::Settings& settings, std::string_view field_name);

/// The text of a boolean from a select list or a made key as a checkbox would post it: a box posts a text
/// only for true; other sources say false in words. Returns the text itself for other types.
std::string_view AsOfBox(platform::TypeCode type, std::string_view text);

/// Whether a form that shows the field's current value and is not touched posts `posted`, "" for nothing.
/// Never for a box whose value is Null, which a box cannot show: unticked it stands for False.
bool IsShownAsPosted(const state::Render& render, const SchemaField& schema, platform::Field& field,
                     std::string_view posted);

}  // namespace dralo::editing
