#pragma once

#include <cstddef>
#include <string>

#include "database/odbc/description.h"
#include "database/odbc/handle.h"

namespace dralo::database::odbc {

/// A statement of the driver, and what is known about it.
struct Statement {
  StatementHandle handle;

  /// The text of the page.
  std::string text;

  /// Its last two parameters, after those of the text, are a limit and an offset.
  bool is_limited = false;

  /// It is not limited, because the database does not accept that.
  bool refuses_limit = false;

  bool is_prepared = false;

  /// The number of "?" in the text.
  std::size_t parameters = 0;

  Description description = {};
};

}  // namespace dralo::database::odbc
