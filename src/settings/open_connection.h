#pragma once

#include <memory>

#include "dralo/connection.h"
#include "dralo/error.h"
#include "settings/settings.h"

namespace dralo::settings {

/// The open connection of the view. Throws platform::Error, which says what to set, when there is none.
inline const std::shared_ptr<platform::Connection>& OpenConnection(const Settings& settings) {
  if (settings.DrConnection == nullptr || settings.DrConnection->Connection() == nullptr) {
    throw platform::Error("There is no database connection: set ConnectionString or DrConnection");
  }
  return settings.DrConnection->Connection();
}

}  // namespace dralo::settings
