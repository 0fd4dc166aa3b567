#pragma once

#include <sql.h>

#include <span>
#include <string>
#include <string_view>

#include "dralo/error.h"

namespace dralo::database::odbc {

/// What the driver and the driver manager say about the last call on a handle: all their records as one
/// sentence, followed by the SQLSTATE of the first. Each text of `secrets` that they repeat is replaced.
platform::Error MakeError(SQLSMALLINT handle_type, SQLHANDLE handle, std::string_view statement,
                          std::span<const std::string> secrets);

/// `message` with the secrets replaced.
std::string WithoutSecrets(std::string message, std::span<const std::string> secrets);

}  // namespace dralo::database::odbc
