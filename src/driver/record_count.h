#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/environment.h"
#include "settings/statement_parameters.h"

namespace dralo::driver {

/// The statement that counts the records of `query`, which must be valid as a derived table.
std::string RecordCountStatement(std::string_view query);

/// How many records `query` with its parameters has on the connection of the view. Throws platform::Error,
/// with the counting statement as its source, when that statement fails, and when the number does not fit
/// into 32 bits.
std::int32_t RecordCount(platform::Environment& environment, const settings::Settings& settings,
                         std::string_view query, settings::Parameters parameters);

/// The value of a counting statement as a number. Throws platform::Error when it does not fit into 32 bits.
std::int32_t CountOf(const platform::Environment& environment, platform::VariantView value);

}  // namespace dralo::driver
