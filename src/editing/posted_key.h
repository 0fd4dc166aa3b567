#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "dralo/recordset.h"
#include "editing/query_schema.h"
#include "state/render.h"

namespace dralo::editing {

/// The items of the posted key, in the order of EditPrimaryKeys. A single key is not split, for its value may
/// contain commas; for several keys there may be more or fewer items than `keys`.
std::vector<std::string> PostedKeyTexts(const state::Render& render, std::size_t keys);

/// Which record a posted form addresses.
struct PostedKey {
  std::string condition = "";  ///< Without the WHERE.

  /// The texts of the keys by which the form was opened, in their order: none when a visitor typed another
  /// key into the form, or when the form was not opened by one.
  std::vector<std::string> exact = {};

  /// The part of the condition that is about keys which are no columns of EditSQL; "" for none.
  std::string outside_columns = "";

  /// The condition for records that the inputs show in the same way although `condition` misses them, because
  /// an empty input shows Null as well; "" for none.
  std::string also_shown = "";
};

/// The record whose key opened the form, as long as every posted input of a key field still holds what the
/// form shows for that record: key texts are exact where a form shows less, such as fractions of seconds.
/// Else the record whose key stands in the inputs. Unlike other inputs these may come in the query string
/// too, and blanks around their values are ignored. `schema` is that of EditSQL. Throws platform::Error when
/// it has fewer columns than there are keys, and for a key of bytes.
PostedKey ReadPostedKey(const state::Render& render, const QuerySchema& schema);

/// Throws platform::Error when the form may have shown another record than the one that `key` finds.
void RefuseAmbiguousKey(const state::Render& render, const PostedKey& key);

/// Throws platform::Error when several records have the key, and the form was not opened by it or another key
/// was typed into it: then nothing tells which of them the form shows. A form that was opened by its key
/// shows the first record that is found.
void RefuseSharedKey(const state::Render& render, const PostedKey& key);

/// Whether the record on which `recordset` stands has exactly the key in `key.exact`. The database may
/// compare less exactly. True when that is empty.
bool IsRecordOfKey(const state::Render& render, platform::Recordset& recordset, const PostedKey& key);

}  // namespace dralo::editing
