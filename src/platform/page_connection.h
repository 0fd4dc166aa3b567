#pragma once

#include <memory>
#include <string_view>

#include "dralo/connection.h"
#include "dralo/object.h"

namespace dralo::platform {

enum class DatabaseEngine { kOracle = 1, kSqla = 2, kAccess = 3, kMssql = 4 };

/// A connection that the views of a page may share, with the dialect of its database.
class PageConnection : public Object {
 public:
  /// nullptr when the page has set none, and after the end of the page.
  virtual const std::shared_ptr<platform::Connection>& Connection() const = 0;

  virtual DatabaseEngine Engine() const = 0;

  /// "ORACLE", "SQLA", "ACCESS" or "MSSQL".
  virtual std::string_view EngineName() const = 0;

  /// Takes one of these names in any letter case; every other name stands for "ORACLE".
  virtual void SetEngineName(std::string_view name) = 0;
};

}  // namespace dralo::platform
