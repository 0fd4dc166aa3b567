#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "dralo/recordset.h"
#include "settings/statement_parameters.h"
#include "state/render.h"

namespace dralo::editing {

/// `sql`, which has these parameters, restricted to one record: the current one of `shown`, or without
/// `shown` the one whose primary key was posted. Empty when EditPrimaryKeys is, when `sql` yields no row,
/// when `shown` is at its end, and after a failure, which is reported in ErrorMessage.
std::string GetSqlPK(state::Render& render, std::string_view sql, settings::Parameters parameters = {},
                     platform::Recordset* shown = nullptr);

/// A fresh key value: the first column of the first row of `statement`, in the regional text in which a
/// person would type it. Empty after a failure, such as an empty result, which is reported in ErrorMessage.
std::string GetNewPKValue(state::Render& render, std::string_view statement);

/// Where the value of a field of a new record comes from.
struct NewKey {
  bool is_left_to_database = false;    ///< "autoincrement": the field is not written at all.
  std::optional<std::string> value{};  ///< From the statement in EditNewPKStatement; nothing: as posted.
};

/// What EditNewPKStatement says for the field: nothing unless it is a primary key. A statement that fails
/// leaves its message in ErrorMessage and yields "". Throws platform::Error when EditNewPKStatement has no
/// item for the key.
NewKey MakeNewKey(state::Render& render, std::string_view field_name);

}  // namespace dralo::editing
