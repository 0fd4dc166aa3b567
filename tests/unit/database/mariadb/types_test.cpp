#include <gtest/gtest.h>

#include <vector>

#include "data/column_types.h"
#include "data/new_database.h"
#include "data/shorthand.h"

namespace dralo::tests {

namespace {

/// What pages learn of the only field, and its value in every record.
Lines Described(const ConnectionPtr& connection, const std::string& sql) {
  const auto recordset = Read(connection, sql);
  const platform::Field& field = *recordset->Fields()[0];
  Lines lines = {std::string(field.Name()) + " " + std::to_string(static_cast<int>(field.Type())) + " " +
                 std::to_string(field.DefinedSize()) + " " + std::to_string(field.Attributes()) +
                 (field.Comparison() != nullptr ? " compared" : "")};
  for (std::string& line : Rest(*recordset)) lines.push_back(std::move(line));
  return lines;
}

class MariaDbTypes : public ::testing::Test {
 protected:
  NewServerDatabase database_{Server::kMariaDb, Way::kProvider};
  ConnectionPtr connection_ = Connect(database_.ConnectionString());
  ConnectionPtr through_driver_ =
      Connect("Driver=MariaDB Unicode;" +
              database_.ConnectionString().substr(database_.ConnectionString().find(';')));
};

TEST_F(MariaDbTypes, AreThoseThatTheDriverTells) {
  int number = 0;
  for (const ColumnType& type : ColumnTypesOf("MariaDb")) {
    SCOPED_TRACE(type.type + " " + type.literal);
    const std::string table = "t" + std::to_string(++number);
    try {
      connection_->Execute("CREATE TABLE " + table + " (ID INTEGER PRIMARY KEY, k " + type.type + ")");
    } catch (const platform::Error&) {
      ASSERT_TRUE(type.is_optional);
      continue;
    }
    connection_->Execute("SET STATEMENT sql_mode = 'ALLOW_INVALID_DATES' FOR INSERT INTO " + table +
                         " VALUES (1, " + type.literal + ")");
    if (!type.type.ends_with("NOT NULL")) connection_->Execute("INSERT INTO " + table + " (ID) VALUES (2)");
    const std::string sql = "SELECT k FROM " + table + " ORDER BY ID";
    EXPECT_EQ(Described(connection_, sql), Described(through_driver_, sql));
  }
}

TEST_F(MariaDbTypes, OfExpressionsAreThoseThatTheDriverTells) {
  connection_->Execute(
      "CREATE TABLE t (ID INTEGER AUTO_INCREMENT PRIMARY KEY, stamp TIMESTAMP NOT NULL, "
      "birth TIMESTAMP NOT NULL DEFAULT '2000-01-01')");
  connection_->Execute("INSERT INTO t VALUES (1, '2024-05-06 07:08:09', '2024-05-06 07:08:09')");
  for (const char* expression : {"1",
                                 "-1",
                                 "NULL",
                                 "1.5",
                                 "1e0",
                                 "'a'",
                                 "'\xC3\xA4'",
                                 "TRUE",
                                 "DATE '2024-01-01'",
                                 "CONCAT('a', 'b')",
                                 "x'00FF'",
                                 "COUNT(*)",
                                 "1 = 1",
                                 "SUM(1)",
                                 "AVG(1)",
                                 "CAST(1 AS UNSIGNED)",
                                 "REPEAT('a', 100)",
                                 "REPEAT('a', 100000)",
                                 "IF(1, NULL, 'x')",
                                 "JSON_OBJECT('a', 1)",
                                 "MAX('x')",
                                 "CAST('x' AS CHAR(5))",
                                 "COALESCE(NULL, 1)",
                                 "GROUP_CONCAT('x')",
                                 "1 / 3",
                                 "b'101'",
                                 "TIMEDIFF('100:00', '1:00')",
                                 "18446744073709551615",
                                 "ID",
                                 "stamp",
                                 "birth",
                                 "MAX(stamp)",
                                 "(SELECT stamp FROM t)"}) {
    const std::string sql = std::string("SELECT ") + expression + " AS k FROM t";
    EXPECT_EQ(Described(connection_, sql), Described(through_driver_, sql)) << expression;
  }
}

}  // namespace

}  // namespace dralo::tests
