#pragma once

#include <sql.h>

#include <span>
#include <string>
#include <string_view>

#include "dralo/error.h"

namespace dralo::database::odbc {

/// What the driver and the driver manager say about the last call on a handle: all their records as one
/// sentence with the SQLSTATE of the first behind it. Every text of `secrets` that they repeat is replaced.
platform::Error MakeError(SQLSMALLINT handle_type, SQLHANDLE handle, std::string_view statement,
                          std::span<const std::string> secrets);

/// `message` without the secrets.
std::string WithoutSecrets(std::string message, std::span<const std::string> secrets);

}  // namespace dralo::database::odbc
