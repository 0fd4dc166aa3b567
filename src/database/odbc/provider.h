#pragma once

#include "database/provider.h"

namespace dralo::database::odbc {

/// Databases behind an ODBC driver: "Driver=NAME;Server=...;Database=...;Uid=...;Pwd=..." or "DSN=NAME".
/// Connect Timeout and Query Timeout are in seconds, 15 and 30 when not given; a Query Timeout of 0 waits for
/// ever.
class Provider final : public database::Provider {
 public:
  Provider() = default;
  std::string_view Name() const override { return "ODBC"; }
  std::string Library() const override;
  bool IsCalled(std::string_view name) const override;
  std::string_view Example() const override { return "Driver=NAME for another database"; }
  std::string PoolKey(const ConnectionString& connection_string) const override;
  std::unique_ptr<database::Session> Connect(const ConnectionString& connection_string) const override;
};

}  // namespace dralo::database::odbc
