#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "dralo/recordset.h"
#include "editing/keyed_statement.h"

/// Which record of a hardened page is shown.
namespace dralo::editing {

/// The texts of the key that the request names, or that a posted form does; nothing when it names none.
std::optional<KeyTexts> RequestedKey(const state::Render& render);
std::optional<KeyTexts> KeyOfPostedForm(const state::Render& render);

/// Those of the record on which `recordset` stands; nothing when it has no key: one of its items is Null or
/// bytes.
std::optional<KeyTexts> KeyOf(const state::Render& render, platform::Recordset& recordset);

/// Whether `sql` of the page yields the record of the key, too, which `form` with its parameters yields.
/// Where it is no statement, does not show all keys, or RecordsOutsideSql is set, every record counts.
bool IsInsideSql(const state::Render& render, std::string_view form, settings::Parameters parameters,
                 const KeyTexts& key);

/// The record of `sql` that has the key; at its end when there is none, whatever the reason. A key that the
/// visitor has named must be inside the page's `sql`, too. Throws platform::Error when the statement fails.
std::shared_ptr<platform::Recordset> OpenRecordOfKey(const state::Render& render, std::string_view sql,
                                                     settings::Parameters parameters,
                                                     const std::optional<KeyTexts>& key, bool is_named);

}  // namespace dralo::editing
