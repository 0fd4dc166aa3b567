#pragma once

#include <span>
#include <string_view>

#include "dralo/recordset.h"
#include "settings/settings.h"

/// The values that the page has given for the "?" of its statements.
namespace dralo::settings {

using Parameters = std::span<const platform::Variant>;

/// Those of FormSQL and EditSQL: their own, else those of the statement that they were copied from. Valid as
/// long as the settings.
Parameters FormParameters(const Settings& settings);
Parameters EditParameters(const Settings& settings);

/// Those of EditSQL of which only the beginning is used.
Parameters EditParametersOf(const Settings& settings, std::string_view beginning);

/// Opens a statement, or a bare table name, with its parameters on the connection of the view. Throws
/// platform::Error when there is none, when it does not run and when the number of parameters is wrong.
void OpenWithParameters(platform::Recordset& recordset, const Settings& settings, std::string_view sql,
                        Parameters parameters,
                        platform::CursorType cursor = platform::CursorType::kForwardOnly,
                        platform::LockType lock = platform::LockType::kReadOnly);

}  // namespace dralo::settings
