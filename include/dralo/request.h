#pragma once

#include "platform/request.h"

namespace dralo {

using platform::Request;
using platform::RequestField;

}  // namespace dralo
