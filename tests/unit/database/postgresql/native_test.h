#pragma once

#include <gtest/gtest.h>

#include <string>

#include "data/new_database.h"
#include "data/shorthand.h"

namespace dralo::tests {

/// A test with a database of its own on a real server, reached through the provider for PostgreSQL.
class PostgreSqlProvider : public ::testing::Test {
 protected:
  Lines Ask(std::string_view sql, std::int64_t max_records = 0) const {
    return Rest(*Read(connection_, sql, max_records));
  }

  void Run(std::string_view sql) const { connection_->Execute(sql); }

  ConnectionPtr Another(const std::string& settings = {}) const {
    return Connect(database_.ConnectionString() + settings);
  }

  /// The number of the process that serves the connection; of this machine.
  int Server() const { return std::stoi(Ask("SELECT pg_backend_pid()").front()); }

  NewServerDatabase database_{dralo::tests::Server::kPostgreSql, Way::kProvider};
  ConnectionPtr connection_ = Connect(database_.ConnectionString());
};

}  // namespace dralo::tests
