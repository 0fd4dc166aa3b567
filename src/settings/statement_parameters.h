#pragma once

#include <span>
#include <string_view>

#include "dralo/recordset.h"
#include "settings/settings.h"

/// The values that the page has given for the "?" of its statements.
namespace dralo::settings {

using Parameters = std::span<const platform::Variant>;

/// The values for FormSQL and EditSQL: their own, else those of the statement from which they were copied.
/// Valid as long as the settings.
Parameters FormParameters(const Settings& settings);
Parameters EditParameters(const Settings& settings);

/// The values for the beginning of EditSQL, when only that is used.
Parameters EditParametersOf(const Settings& settings, std::string_view beginning);

/// Opens a statement, or a bare table name, with its parameters on the connection of the view. Throws
/// platform::Error when there is no connection, when the statement does not run and when the number of
/// parameters is wrong.
void OpenWithParameters(platform::Recordset& recordset, const Settings& settings, std::string_view sql,
                        Parameters parameters,
                        platform::CursorType cursor = platform::CursorType::kForwardOnly,
                        platform::LockType lock = platform::LockType::kReadOnly);

}  // namespace dralo::settings
