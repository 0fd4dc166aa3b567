#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "dralo/recordset.h"
#include "editing/keyed_statement.h"

/// Which record of a hardened page is shown.
namespace dralo::editing {

/// The key texts that the request names, or those in a posted form; nothing when there are none.
std::optional<KeyTexts> RequestedKey(const state::Render& render);
std::optional<KeyTexts> KeyOfPostedForm(const state::Render& render);

/// The key texts of the record on which `recordset` stands; nothing when one of its keys is Null or bytes.
std::optional<KeyTexts> KeyOf(const state::Render& render, platform::Recordset& recordset);

/// Whether the page's `sql` yields the record of the key too, which the statement `form` with its parameters
/// yields. When `sql` is no statement, does not show all keys, or RecordsOutsideSql is set, every record
/// counts as inside.
bool IsInsideSql(const state::Render& render, std::string_view form, settings::Parameters parameters,
                 const KeyTexts& key);

/// The record of `sql` that has the key; the recordset is at its end when there is none, whatever the reason.
/// With `is_named` the visitor has named the key, and the page's `sql` must yield the record too. Throws
/// platform::Error when the statement fails.
std::shared_ptr<platform::Recordset> OpenRecordOfKey(const state::Render& render, std::string_view sql,
                                                     settings::Parameters parameters,
                                                     const std::optional<KeyTexts>& key, bool is_named);

}  // namespace dralo::editing
