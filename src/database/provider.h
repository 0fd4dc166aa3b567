#pragma once

#include <memory>
#include <string>

#include "database/connection_string.h"
#include "database/session.h"

namespace dralo::database {

/// A kind of database. Stateless; lives as long as the process.
class Provider {
 public:
  virtual ~Provider() = default;
  Provider(const Provider&) = delete;
  Provider& operator=(const Provider&) = delete;

  /// What sessions must have in common to stand in for each other; empty when they are never kept.
  /// Throws platform::Error when the connection string is not understood.
  virtual std::string PoolKey(const ConnectionString& connection_string) const = 0;

  /// Throws platform::Error when the connection string is not understood or the database does not open.
  virtual std::unique_ptr<Session> Connect(const ConnectionString& connection_string) const = 0;

 protected:
  Provider() = default;
};

/// The provider that the connection string names. Throws platform::Error when it names none.
const Provider& FindProvider(const ConnectionString& connection_string);

}  // namespace dralo::database
