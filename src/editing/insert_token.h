#pragma once

#include <optional>
#include <string>

#include "dralo/recordset.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

// Each add form carries a token, which the new record keeps in a column with a unique index: however often a
// form is posted, even at the same moment, it adds one record.

/// Whether add forms carry a token: on hardened pages that name a column for it.
bool HasInsertToken(const settings::Settings& settings);

/// The token that was posted; a new one when there is none.
std::string PostedInsertToken(const state::Render& render);

/// The token that the form carries: the posted one when the form comes back with what was typed, else a new
/// one.
std::string InsertTokenOfForm(const state::Render& render);

/// Gives the new record on which `recordset` stands its token. Throws platform::Error when EditSQL has no
/// such column.
void SetInsertToken(const state::Render& render, platform::Recordset& recordset, const std::string& token);

/// The key of the record that an earlier post of the same form has added, as key::kPrimaryKey carries it;
/// nothing when EditSQL, whose columns `schema` has, yields no such record. Throws platform::Error when
/// EditSQL has no column for tokens, and when the statement fails.
std::optional<std::string> KeyOfAddedRecord(const state::Render& render, const QuerySchema& schema,
                                            const std::string& token);

}  // namespace dralo::editing
