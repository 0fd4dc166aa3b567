#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "database/connection_string.h"
#include "database/session.h"

namespace dralo::database {

/// A kind of database. Stateless; lives as long as the process.
class Provider {
 public:
  virtual ~Provider() = default;
  Provider(const Provider&) = delete;
  Provider& operator=(const Provider&) = delete;

  /// The name in messages and in tables of versions.
  virtual std::string_view Name() const = 0;

  /// The client library and its version, such as "SQLite 3.40.1", or why there is none. Loads the library.
  virtual std::string Library() const = 0;

  /// Whether "Provider=NAME" means this one, in any letter case.
  virtual bool IsCalled(std::string_view name) const;

  /// A connection string to begin with, for messages. Only providers that need no server have one, and the
  /// one for all other databases.
  virtual std::string_view Example() const { return {}; }

  /// Equal for sessions that can replace each other; empty when sessions are never kept. Throws
  /// platform::Error when the connection string is not understood.
  virtual std::string PoolKey(const ConnectionString& connection_string) const;

  /// Throws platform::Error when the connection string is not understood or the database does not open.
  virtual std::unique_ptr<Session> Connect(const ConnectionString& connection_string) const = 0;

 protected:
  Provider() = default;
};

/// The providers that a host offers, at least one, in the order in which messages suggest them. They and the
/// array live as long as the process.
using Providers = std::span<const Provider* const>;

/// The provider of a connection string that has "Driver" or "DSN".
inline constexpr std::string_view kDriverProvider = "MSDASQL";

/// The provider that the connection string names. Throws platform::Error when it names none of `providers`.
const Provider& FindProvider(Providers providers, const ConnectionString& connection_string);

}  // namespace dralo::database
