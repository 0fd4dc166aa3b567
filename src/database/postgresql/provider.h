#pragma once

#include "database/provider.h"

namespace dralo::database::postgresql {

/// PostgreSQL databases: "Provider=PostgreSQL;Host=...;Database=...;User ID=...;Password=...". Connect
/// Timeout and Query Timeout are in seconds, 15 and 30 when not given; 0 waits for ever.
class Provider final : public database::Provider {
 public:
  Provider() = default;
  std::string_view Name() const override { return "PostgreSQL"; }
  std::string Library() const override;
  std::unique_ptr<database::Session> Connect(const ConnectionString& connection_string) const override;
};

}  // namespace dralo::database::postgresql
