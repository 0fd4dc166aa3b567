#pragma once

#include <cstddef>
#include <string>

#include "database/odbc/description.h"
#include "database/odbc/handle.h"

namespace dralo::database::odbc {

/// A statement of the driver and what is known of it.
struct Statement {
  StatementHandle handle;

  /// As it was asked for.
  std::string text;

  /// A limit and an offset are its last two parameters, behind those of the text.
  bool is_limited = false;

  /// It is not limited because the database does not accept that.
  bool refuses_limit = false;

  bool is_prepared = false;

  /// The "?" of the text.
  std::size_t parameters = 0;

  Description description = {};
};

}  // namespace dralo::database::odbc
