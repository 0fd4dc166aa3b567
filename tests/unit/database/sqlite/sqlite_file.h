#pragma once

#include <gtest/gtest.h>

#include <string>

#include "data/shorthand.h"
#include "data/temporary_folder.h"
#include "database/session_pool.h"

namespace dralo::tests {

/// A test with a database file of its own and no kept connections from earlier ones.
class SqliteFile : public ::testing::Test {
 protected:
  SqliteFile() { database::CloseIdleConnections(); }
  ~SqliteFile() override { database::CloseIdleConnections(); }

  std::string Path() const { return folder_.File("test.db"); }

  std::string ConnectionString(const std::string& more = "") const {
    return "Provider=SQLite;Mode=ReadWriteCreate;Data Source=" + Path() + ";" + more;
  }

  /// Connects to the file on first use.
  const ConnectionPtr& Database() {
    if (!database_) database_ = Connect(ConnectionString());
    return database_;
  }

  void Run(std::string_view sql) { Database()->Execute(sql); }

  Lines Rows(std::string_view sql) { return tests::Rows(Database(), sql); }

 private:
  TemporaryFolder folder_;
  ConnectionPtr database_;
};

}  // namespace dralo::tests
