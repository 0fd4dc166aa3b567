#pragma once

#include <string>
#include <string_view>

#include "database/postgresql/libpq.h"
#include "dralo/error.h"

namespace dralo::database::postgresql {

/// What the client library says about a connection, on one line.
std::string OneLine(std::string_view message);

/// What the server says about a statement that failed, with the SQLSTATE behind it. A result without one
/// stands for a connection that was lost.
platform::Error ErrorOf(const PGresult* result, std::string_view statement);

/// Of a connection that was given up after a deadline.
platform::Error NoAnswer(std::string_view statement);

/// Of a connection that is closed already.
platform::Error NoConnection(std::string_view reason, std::string_view statement);

}  // namespace dralo::database::postgresql
