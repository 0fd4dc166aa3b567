#pragma once

#include "platform/page_context.h"

namespace dralo {

using platform::PageContext;

}  // namespace dralo
