#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "data/shorthand.h"
#include "data/temporary_folder.h"

namespace dralo::tests {

/// A database that the contract is tested with.
struct Database {
  std::string name;

  /// An empty database, made in `folder` when it is a file.
  std::function<std::string(const TemporaryFolder& folder)> connection_string;

  // Types that databases spell differently.
  std::string identity;  ///< A primary key that the database numbers.
  std::string boolean;
  std::string timestamp;
  std::string bytes;
};

inline std::ostream& operator<<(std::ostream& out, const Database& database) { return out << database.name; }

/// A test that runs once for every database, with the table Goods of five records.
class DatabaseContract : public ::testing::TestWithParam<Database> {
 protected:
  void SetUp() override {
    connection_ = Connect(ConnectionString());
    connection_->Execute("CREATE TABLE Goods (ID " + GetParam().identity +
                         ", Name VARCHAR(20) NOT NULL, Price DECIMAL(10,2), Stock SMALLINT, Active " +
                         GetParam().boolean + ", Born DATE, Seen " + GetParam().timestamp +
                         ", Weight DOUBLE PRECISION, Note TEXT, Picture " + GetParam().bytes + ")");
    connection_->Execute(
        "INSERT INTO Goods (ID, Name, Price, Stock, Active, Born, Seen, Weight, Note) VALUES "
        "(1, 'Anvil', 12.5, 3, TRUE, '2024-02-29', '2024-03-01 10:20:30', 99.5, 'heavy'), "
        "(2, 'Bell', 3, 10, FALSE, '1999-12-31', '2024-03-01 00:00:00', 0.25, NULL), "
        "(3, 'Candle', NULL, NULL, NULL, NULL, NULL, NULL, NULL), "
        "(4, 'Drum', 80, 1, TRUE, '2000-01-01', '2000-01-01 23:59:59', 7, 'loud'), "
        "(5, 'Easel', 45.75, 2, FALSE, '2010-10-10', '2010-10-10 01:01:01', 5.5, 'wooden')");
  }

  std::string ConnectionString() const { return GetParam().connection_string(folder_); }

  TemporaryFolder folder_;
  ConnectionPtr connection_;
};

}  // namespace dralo::tests
