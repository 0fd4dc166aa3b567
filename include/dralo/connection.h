#pragma once

#include "platform/connection.h"

namespace dralo {

using platform::Connection;

}  // namespace dralo
