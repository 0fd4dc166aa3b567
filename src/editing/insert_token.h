#pragma once

#include <optional>
#include <string>

#include "dralo/recordset.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

// The add form carries a token of its own, which the new record keeps in a column with a unique index: of
// posts of one form, however many and at the same moment too, one adds a record.

/// Whether add forms carry a token: on hardened pages that name a column for it.
bool HasInsertToken(const settings::Settings& settings);

/// The token that was posted; a new one when there is none.
std::string PostedInsertToken(const state::Render& render);

/// What the form carries: what was posted where it comes back with what was typed, else a new one.
std::string InsertTokenOfForm(const state::Render& render);

/// Gives the new record on which `recordset` stands its token. Throws platform::Error when the column is none
/// of EditSQL.
void SetInsertToken(const state::Render& render, platform::Recordset& recordset, const std::string& token);

/// The key of the record that a post of the same form has added before, as key::kPrimaryKey carries it;
/// nothing when EditSQL, whose columns `schema` has, yields none. Throws platform::Error when it has no
/// column for tokens, and when the statement fails.
std::optional<std::string> KeyOfAddedRecord(const state::Render& render, const QuerySchema& schema,
                                            const std::string& token);

}  // namespace dralo::editing
