#pragma once

#include "platform/object.h"

namespace dralo {

using platform::Object;
using platform::ObjectPtr;

}  // namespace dralo
