#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "dralo/connection.h"
#include "platform/environment.h"

namespace dralo::driver {

/// The statement that counts the records of `query`, which must be valid as a derived table.
std::string RecordCountStatement(std::string_view query);

/// How many records `query` has. Throws platform::Error when the counting statement fails, its source being
/// the counting statement, or when the number does not fit 32 bits.
std::int32_t RecordCount(platform::Environment& environment,
                         const std::shared_ptr<platform::Connection>& connection, std::string_view query);

/// The value of a counting statement as a number. Throws platform::Error when it does not fit 32 bits.
std::int32_t CountOf(const platform::Environment& environment, platform::VariantView value);

}  // namespace dralo::driver
