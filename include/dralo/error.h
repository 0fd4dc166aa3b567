#pragma once

#include "platform/error.h"

namespace dralo {

using platform::Error;

}  // namespace dralo
