#pragma once

#include <gtest/gtest.h>

#include <string>

#include "data/new_database.h"
#include "data/shorthand.h"

namespace dralo::tests {

/// A test with a database of its own on a real server, reached by MariaDB's own provider.
class MariaDbNative : public ::testing::Test {
 protected:
  Lines Ask(std::string_view sql, std::int64_t max_records = 0) const {
    return Rest(*Read(connection_, sql, max_records));
  }

  void Run(std::string_view sql) const { connection_->Execute(sql); }

  static Lines IdOf(const ConnectionPtr& connection) { return Rows(connection, "SELECT CONNECTION_ID()"); }

  NewServerDatabase database_{Server::kMariaDb, Way::kProvider};
  ConnectionPtr connection_ = Connect(database_.ConnectionString());
};

}  // namespace dralo::tests
