#pragma once

#include <string>
#include <string_view>

#include "dralo/recordset.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

// The same add form may be posted twice: by a second click, or by a browser that sends a post again. Nothing
// is kept on the server, so the form carries the greatest key that there was when it was made; an equal
// record with a greater key was added by the same form.

/// The name, in the page and in the post, of the input with the greatest key.
inline constexpr std::string_view kGreatestKey = "After";

/// Whether add forms carry the greatest key: on hardened pages with a single key that the database or a
/// statement makes, and without EditInsertToken, which needs no question.
bool DetectsReplays(const settings::Settings& settings);

/// What the form carries: the greatest key of the records of EditSQL, whose fields `records` has, or one
/// below all when there are none; "" when keys are no whole numbers. Where a save was lost that may have been
/// made, it stays what was posted. Throws platform::Error when the statement fails.
std::string GreatestKeyOfForm(const state::Render& render, platform::Recordset& records);

/// Whether a record of EditSQL and of the page's `sql` has a greater key than the posted one and, in all
/// fields that were posted, the values of the new record on which `recordset` stands. Throws platform::Error
/// when the statement fails.
bool IsReplayed(const state::Render& render, const QuerySchema& schema, platform::Recordset& recordset);

}  // namespace dralo::editing
