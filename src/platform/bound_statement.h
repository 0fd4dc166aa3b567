#pragma once

#include <string>
#include <vector>

#include "dralo/variant.h"

namespace dralo::platform {

/// A statement and the values of its "?" in their order.
struct BoundStatement {
  std::string text = "";
  std::vector<Variant> parameters = {};
};

}  // namespace dralo::platform
