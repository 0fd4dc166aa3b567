#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dralo/connection.h"
#include "dralo/object.h"
#include "dralo/variant.h"

namespace dralo::platform {

/// What the text of a command is.
enum class CommandType : int { kUnspecified = -1, kText = 1, kTable = 2, kStoredProcedure = 4, kUnknown = 8 };

/// A statement with its parameters, so that a visitor's input never becomes part of the text. Made by
/// std::make_shared; otherwise plain values, which belong to one thread at a time.
class Command : public Object {
 public:
  /// Where the statement runs; must be set and open when it does. Kept alive by the command.
  std::shared_ptr<Connection> active_connection;

  /// A statement, or the name of a table or of a stored procedure, as the type says.
  std::string command_text;

  /// With kUnspecified and kUnknown the text decides: a bare name, perhaps with a schema in front, is a
  /// table.
  CommandType command_type = CommandType::kUnspecified;

  /// Values of the "?" in the text, in their order.
  std::vector<Variant> parameters;
};

}  // namespace dralo::platform

namespace dralo {

using platform::Command;
using platform::CommandType;

}  // namespace dralo
