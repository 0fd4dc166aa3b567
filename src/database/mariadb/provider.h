#pragma once

#include "database/provider.h"

namespace dralo::database::mariadb {

/// MariaDB and MySQL databases: "Provider=MariaDB;Host=...;Database=...;User ID=...;Password=...". Connect
/// Timeout and Query Timeout are in seconds, 15 and 30 when not given; 0 waits for ever.
class Provider final : public database::Provider {
 public:
  Provider() = default;
  std::string_view Name() const override { return "MariaDB"; }
  std::string Library() const override;
  bool IsCalled(std::string_view name) const override;
  std::unique_ptr<database::Session> Connect(const ConnectionString& connection_string) const override;
};

}  // namespace dralo::database::mariadb
