#pragma once

#include "platform/response.h"

namespace dralo {

using platform::Response;

}  // namespace dralo
