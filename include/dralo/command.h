#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dralo/connection.h"
#include "dralo/object.h"
#include "dralo/variant.h"

namespace dralo::platform {

enum class CommandType : int { kUnspecified = -1, kText = 1, kTable = 2, kStoredProcedure = 4, kUnknown = 8 };

/// A statement with its parameters, so that a visitor's input never becomes part of the text.
class Command : public Object {
 public:
  std::shared_ptr<Connection> active_connection;
  std::string command_text;
  CommandType command_type = CommandType::kUnspecified;

  /// Values of the "?" in the text, in their order.
  std::vector<Variant> parameters;
};

}  // namespace dralo::platform

namespace dralo {

using platform::Command;
using platform::CommandType;

}  // namespace dralo
