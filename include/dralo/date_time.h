#pragma once

#include "platform/date_time.h"

namespace dralo {

using platform::DateTime;

}  // namespace dralo
