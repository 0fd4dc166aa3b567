#pragma once

#include <memory>
#include <string>

#include "database/provider.h"
#include "hosts/cpp/providers.h"

namespace dralo::tests {

/// A session as the recordsets use it, not of the pool.
inline std::unique_ptr<database::Session> NewSession(const std::string& connection_string) {
  const database::ConnectionString settings(connection_string);
  return database::FindProvider(host::AllProviders(), settings).Connect(settings);
}

}  // namespace dralo::tests
