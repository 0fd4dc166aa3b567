#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "state/render.h"

namespace dralo::editing {

/// Where the value of a field of a new record comes from.
struct NewKey {
  bool is_left_to_database = false;    ///< "autoincrement": the field is not written at all.
  std::optional<std::string> value{};  ///< Of the statement of EditNewPKStatement; nothing: as posted.
};

/// What EditNewPKStatement says for the field: nothing unless it is a primary key. A statement that fails
/// leaves its message in ErrorMessage and yields "". Throws platform::Error when EditNewPKStatement has no
/// item for the key.
NewKey MakeNewKey(state::Render& render, std::string_view field_name);

}  // namespace dralo::editing
