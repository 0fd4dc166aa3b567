#pragma once

// Printed by make_cpp_properties from the property tables: do not edit.

#include <memory>
#include <string>
#include <string_view>

#include "dralo/connection.h"
#include "dralo/property_owner.h"

namespace dralo {

/// The properties of a connection that views share, in the manner of DbViewProperties.
// clang-format off
class DBConnectionProperties : public PropertyOwner {
 public:
  /// The database connection; one that the page assigns stays the page's own.
  std::shared_ptr<dralo::Connection> Connection() const { return Typed<std::shared_ptr<dralo::Connection>>("Connection"); }
  void SetConnection(const std::shared_ptr<dralo::Connection>& value) { SetTyped("Connection", value); }  ///< Sets Connection().
  /// The dialect: "ORACLE", "SQLA", "MSSQL" or "ACCESS"; any other name stands for "ORACLE"; set it after the connection string.
  std::string DatabaseEngine() const { return Typed<std::string>("DatabaseEngine"); }
  void SetDatabaseEngine(std::string_view value) { SetTyped("DatabaseEngine", value); }  ///< Sets DatabaseEngine().
};
// clang-format on

}  // namespace dralo
