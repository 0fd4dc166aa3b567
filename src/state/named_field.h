#pragma once

#include <string_view>

#include "dralo/error.h"
#include "dralo/recordset.h"

namespace dralo::state {

/// The field called `name`, in any letter case; nullptr when there is none.
platform::Field* FindField(platform::Recordset& recordset, std::string_view name);

/// For throwing where a setting names a field that the record does not have.
platform::Error UnknownField(std::string_view name);

/// The column that EditPrimaryKeys names so. Throws platform::Error when the recordset has none, and when the
/// property names nothing.
platform::Field& KeyField(platform::Recordset& recordset, std::string_view name);

}  // namespace dralo::state
