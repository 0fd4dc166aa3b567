#pragma once

#include <string>
#include <string_view>

#include "dralo/recordset.h"
#include "state/render.h"

namespace dralo::editing {

/// `sql` restricted to one record: the one that `shown` stands on, or without it the one whose primary key
/// was posted. Empty when EditPrimaryKeys is, when `sql` yields no row, when `shown` is at its end, and after
/// a failure, which is reported in ErrorMessage.
std::string GetSqlPK(state::Render& render, std::string_view sql, platform::Recordset* shown = nullptr);

/// A fresh key value: the first column of the first row of `statement`, in the regional text in which a
/// person would type it. Empty after a failure, such as an empty result, which is reported in ErrorMessage.
std::string GetNewPKValue(state::Render& render, std::string_view statement);

}  // namespace dralo::editing
