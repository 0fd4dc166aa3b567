#pragma once

#include <string>
#include <string_view>

#include "database/postgresql/libpq.h"
#include "dralo/error.h"

namespace dralo::database::postgresql {

/// A message of the client library, on one line.
std::string OneLine(std::string_view message);

/// What the server says about a statement that failed, followed by the SQLSTATE. A result without one means
/// that the connection was lost.
platform::Error ErrorOf(const PGresult* result, std::string_view statement);

/// For a connection that was given up after a deadline.
platform::Error NoAnswer(std::string_view statement);

/// For a connection that was closed before.
platform::Error NoConnection(std::string_view reason, std::string_view statement);

}  // namespace dralo::database::postgresql
