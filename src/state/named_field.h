#pragma once

#include <string_view>

#include "dralo/error.h"
#include "dralo/recordset.h"

namespace dralo::state {

/// The field called `name`, in any letter case; nullptr when there is none.
platform::Field* FindField(platform::Recordset& recordset, std::string_view name);

/// For code that throws when a setting names a field that the record does not have.
platform::Error UnknownField(std::string_view name);

/// The column that EditPrimaryKeys calls `name`. Throws platform::Error when the recordset has none, and when
/// the name is empty.
platform::Field& KeyField(platform::Recordset& recordset, std::string_view name);

}  // namespace dralo::state
