#pragma once

#include "platform/recordset.h"

namespace dralo {

using platform::CursorLocation;
using platform::CursorType;
using platform::LockType;
using platform::Recordset;

}  // namespace dralo
