#pragma once

#include "dralo/error.h"

namespace dralo::database {

/// What a commit fails with whose connection was lost, for `reason`, after the server was told of it.
platform::Error UnknownOutcome(const platform::Error& reason);

}  // namespace dralo::database
