#pragma once

#include "database/provider.h"

namespace dralo::database::sqlite {

/// SQLite databases: "Provider=SQLite;Data Source=FILE" or ":memory:". Mode is Read, ReadWrite (the default)
/// or ReadWriteCreate. Busy Timeout is in milliseconds. Query Timeout is how many seconds a statement may
/// take until its next row, 30 when not given, without limit when 0. Memory Map is how many megabytes of the
/// file are read as memory, none when not given.
class Provider final : public database::Provider {
 public:
  Provider() = default;
  std::string_view Name() const override { return "SQLite"; }
  std::string Library() const override;
  std::string_view Example() const override { return "Provider=SQLite;Data Source=FILE"; }
  std::string PoolKey(const ConnectionString& connection_string) const override;
  std::unique_ptr<database::Session> Connect(const ConnectionString& connection_string) const override;
};

}  // namespace dralo::database::sqlite
