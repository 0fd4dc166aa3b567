#pragma once

#include <cstdint>

#include "hosts/php/engine.h"

namespace dralo::php {

/// Whether the argument is one of the options that statements are run with; raises ValueError when it is not.
inline bool AreStatementOptions(zend_long options, std::uint32_t argument) {
  if (options == -1 || options == 1) return true;
  zend_argument_value_error(argument, "must be -1 or 1; a table or a stored procedure is run by a command");
  return false;
}

}  // namespace dralo::php
