#pragma once

#include "platform/type_code.h"

namespace dralo {

using platform::kFieldIsNullable;
using platform::TypeCode;

}  // namespace dralo
