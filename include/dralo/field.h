#pragma once

#include "platform/field.h"

namespace dralo {

using platform::Field;

}  // namespace dralo
