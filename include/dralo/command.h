#pragma once

#include "platform/command.h"

namespace dralo {

using platform::Command;
using platform::CommandType;

}  // namespace dralo
