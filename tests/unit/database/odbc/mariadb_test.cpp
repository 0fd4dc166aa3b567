#include "unit/database/odbc/driver_test.h"

namespace dralo::tests {

namespace {

using platform::TypeCode;

TEST_F(MariaDbDriver, ReadsUnsignedNumbersWhole) {
  Run("CREATE TABLE n (a BIGINT UNSIGNED, b INT UNSIGNED, c TINYINT UNSIGNED, d BIGINT)");
  Run("INSERT INTO n VALUES (18446744073709551615, 4294967295, 255, -9223372036854775808)");
  const auto recordset = Read(connection_, "SELECT * FROM n");
  EXPECT_EQ(FieldOf(*recordset, "a").Type(), TypeCode::kUnsignedBigInt);
  EXPECT_EQ(FieldOf(*recordset, "b").Type(), TypeCode::kUnsignedInt);
  EXPECT_EQ(FieldOf(*recordset, "c").Type(), TypeCode::kUnsignedTinyInt);
  EXPECT_EQ(Rest(*recordset), Lines{"18446744073709551615m 4294967295 255 -9223372036854775808"});
}

TEST_F(MariaDbDriver, ReadsDecimalsOf65Digits) {
  const std::string digits(35, '9');
  Run("CREATE TABLE n (a DECIMAL(65,30))");
  Run("INSERT INTO n VALUES (-" + digits + "." + digits.substr(5) + ")");
  EXPECT_EQ(Ask("SELECT a FROM n"), Lines{"-" + digits + "." + digits.substr(5) + "m"});
}

TEST_F(MariaDbDriver, ReadsTextsThatAreLongerThanTheirRoomInAnyRow) {
  const std::string sql =
      "SELECT CAST(seq AS INTEGER), REPEAT('\xF0\x9F\x98\x80', seq * 97), CAST(seq * 2 AS INTEGER) FROM "
      "seq_1_to_40";
  for (const int limit : {0, 40}) {
    const auto recordset = Read(connection_, sql, limit);
    std::size_t i = 1;
    for (; !recordset->Eof(); recordset->MoveNext(), ++i) {
      const auto text = recordset->Fields()[1]->Value();
      ASSERT_EQ(std::get<std::string_view>(text).size(), i * 97 * 4);
      ASSERT_EQ(Shown(recordset->Fields()[2]->Value()), std::to_string(i * 2));
    }
    EXPECT_EQ(i, 41u);
  }
}

TEST_F(MariaDbDriver, ReadsEveryRowOfManyBlocks) {
  const auto recordset =
      Read(connection_, "SELECT CAST(seq AS INTEGER), CAST(seq AS CHAR(9)) FROM seq_1_to_2500");
  int rows = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    ++rows;
    ASSERT_EQ(Line(*recordset), std::to_string(rows) + " '" + std::to_string(rows) + "'");
  }
  EXPECT_EQ(rows, 2500);
}

TEST_F(MariaDbDriver, ReadsBitsBehindRowsWhereTheyAreNull) {
  Run("CREATE TABLE b (a INT, c BIT(1))");
  Run("INSERT INTO b SELECT seq, IF(seq <= 1000, NULL, 1) FROM seq_1_to_1500");
  const auto recordset = Read(connection_, "SELECT a, c FROM b ORDER BY a");
  for (int row = 1; !recordset->Eof(); recordset->MoveNext(), ++row) {
    ASSERT_EQ(Line(*recordset), std::to_string(row) + (row <= 1000 ? " null" : " true"));
  }
}

TEST_F(MariaDbDriver, ReadsTimesThatAreLongerThanADayAndDatesThatAreNone) {
  Run("SET sql_mode = ''");
  Run("CREATE TABLE t (a TIME(3), b DATE, c DATETIME)");
  Run("INSERT INTO t VALUES ('10:20:30.125', '0000-00-00', '0000-00-00'), ('-100:00:00', '2024-02-29', "
      "NULL)");
  EXPECT_EQ(Ask("SELECT a, b FROM t"),
            (Lines{"1899-12-30 10:20:30.125000000 null", "'-100:00:00.000' 2024-02-29 00:00:00"}));
}

TEST_F(MariaDbDriver, FetchesNoMoreThanIsAskedFor) {
  Run("SET @seen = 0");
  EXPECT_EQ(Ask("SELECT @seen := @seen + 1 FROM seq_1_to_100000", 5).size(), 5u);
  EXPECT_EQ(Ask("SELECT CAST(@seen AS INTEGER)"), Lines{"5"});
}

TEST_F(MariaDbDriver, PassesOverRowsOnTheServer) {
  EXPECT_EQ(Page(connection_, "SELECT CAST(seq AS INTEGER) FROM seq_1_to_100000", 90002, 90000),
            (Lines{"90001", "90002"}));
}

TEST_F(MariaDbDriver, FollowsTheTableWhoseColumnsChange) {
  Run("CREATE TABLE goods (id INTEGER PRIMARY KEY, name VARCHAR(20), stock INTEGER)");
  Run("INSERT INTO goods VALUES (7, 'good', 1)");
  EXPECT_EQ(Ask("SELECT * FROM goods", 5), Lines{"7 'good' 1"});
  const std::pair<std::string, std::string> changes[] = {{"CHANGE name title VARCHAR(20)", "7 'good' 1"},
                                                         {"ADD price INTEGER DEFAULT 12", "7 'good' 1 12"},
                                                         {"DROP stock", "7 'good' 12"},
                                                         {"MODIFY price VARCHAR(300)", "7 'good' '12'"}};
  for (const auto& [change, line] : changes) {
    Run("ALTER TABLE goods " + change);
    EXPECT_EQ(Ask("SELECT * FROM goods", 5), Lines{line}) << change;
    EXPECT_EQ(Read(connection_, "SELECT * FROM goods", 5)->Fields()[1]->Name(), "title") << change;
  }
  Run("DROP TABLE goods");
  EXPECT_THROW(Ask("SELECT * FROM goods", 5), platform::Error);
}

TEST_F(MariaDbDriver, DoesNotPutALimitWhereItWouldChangeAStatement) {
  Run("CREATE TABLE t (i INTEGER)");
  Run("INSERT INTO t VALUES (1), (2), (3)");
  EXPECT_FALSE(Read(connection_, "UPDATE t SET i = 0", 1)->IsOpen());
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM t WHERE i = 0"), Lines{"3"});
  EXPECT_EQ(Ask("SELECT i FROM t LIMIT 2", 100).size(), 2u);
  EXPECT_EQ(Ask("SHOW TABLES", 100), Lines{"'t'"});
}

TEST_F(MariaDbDriver, RefusesToChangeATableThatIsReadTwice) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, up INTEGER, name VARCHAR(9))");
  Run("INSERT INTO t VALUES (1, 2, 'a'), (2, 2, 'a')");
  const auto recordset = Edit(connection_, "SELECT a.id, b.name FROM t a JOIN t b ON b.id = a.up");
  FieldOf(*recordset, "name").SetValue("z");
  EXPECT_EQ(MessageOf([&] { recordset->Update(); }),
            "The records cannot be changed: the query reads the table more than once");
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM t WHERE name = 'a'"), Lines{"2"});
}

TEST_F(MariaDbDriver, StopsAStatementThatTakesTooLong) {
  const auto patient = Connect(database_.ConnectionString() + ";Query Timeout=1");
  EXPECT_EQ(ErrorOf([&] { Rows(patient, "SELECT SLEEP(20)"); }).Number(), 1969);
}

}  // namespace

}  // namespace dralo::tests
