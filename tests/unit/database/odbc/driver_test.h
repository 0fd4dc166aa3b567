#pragma once

#include <gtest/gtest.h>

#include <string>

#include "data/new_database.h"
#include "data/shorthand.h"

namespace dralo::tests {

/// A test with a database of its own on a real server.
template <Server kServer>
class ServerTest : public ::testing::Test {
 protected:
  Lines Ask(std::string_view sql, std::int64_t max_records = 0) const {
    return Rest(*Read(connection_, sql, max_records));
  }

  void Run(std::string_view sql) const { connection_->Execute(sql); }

  NewServerDatabase database_{kServer};
  ConnectionPtr connection_ = Connect(database_.ConnectionString());
};

class PostgreSqlDriver : public ServerTest<Server::kPostgreSql> {};
class MariaDbDriver : public ServerTest<Server::kMariaDb> {};

}  // namespace dralo::tests
