#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "data/shorthand.h"
#include "dralo/command.h"

namespace dralo::tests {

using CommandPtr = std::shared_ptr<platform::Command>;

inline CommandPtr MakeCommand(const ConnectionPtr& connection, const std::string& text,
                              std::vector<platform::Variant> parameters = {}) {
  auto command = std::make_shared<platform::Command>();
  command->active_connection = connection;
  command->command_text = text;
  command->parameters = std::move(parameters);
  return command;
}

inline void Perform(const CommandPtr& command) { database::MakeRecordset()->Open(*command); }

inline Lines RowsOf(const CommandPtr& command) {
  const auto recordset = database::MakeRecordset();
  recordset->Open(*command);
  return Rest(*recordset);
}

}  // namespace dralo::tests
