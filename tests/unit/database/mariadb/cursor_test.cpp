#include <cstdlib>
#include <optional>

#include "data/commands.h"
#include "unit/database/mariadb/native_test.h"

namespace dralo::tests {

namespace {

using MariaDbCursor = MariaDbNative;

class NoFolderForTemporaryFiles {
 public:
  NoFolderForTemporaryFiles() {
    if (const char* before = std::getenv("TMPDIR")) before_ = before;
    setenv("TMPDIR", "/nowhere", 1);
  }
  ~NoFolderForTemporaryFiles() {
    if (before_) {
      setenv("TMPDIR", before_->c_str(), 1);
    } else {
      unsetenv("TMPDIR");
    }
  }
  NoFolderForTemporaryFiles(const NoFolderForTemporaryFiles&) = delete;
  NoFolderForTemporaryFiles& operator=(const NoFolderForTemporaryFiles&) = delete;

 private:
  std::optional<std::string> before_;
};

TEST_F(MariaDbCursor, ReadsTextsThatAreLongerThanTheirRoomInAnyRow) {
  const auto recordset = Read(connection_,
                              "SELECT CAST(seq AS INTEGER), REPEAT('\xF0\x9F\x98\x80', seq * 97), "
                              "CAST(seq * 2 AS INTEGER) FROM seq_1_to_40");
  std::size_t i = 1;
  for (; !recordset->Eof(); recordset->MoveNext(), ++i) {
    const auto text = recordset->Fields()[1]->Value();
    ASSERT_EQ(std::get<std::string_view>(text).size(), i * 97 * 4);
    ASSERT_EQ(Shown(recordset->Fields()[2]->Value()), std::to_string(i * 2));
  }
  EXPECT_EQ(i, 41u);
}

TEST_F(MariaDbCursor, ReadsOnWhileOtherStatementsRunHoweverLongTheRestIs) {
  const auto recordset = Read(connection_,
                              "SELECT CAST(seq AS INTEGER), REPEAT('x', 200), IF(seq % 2, NULL, 1.5), "
                              "TIME '-10:00:00' FROM seq_1_to_60000");
  recordset->MoveNext();
  const auto text = recordset->Fields()[1]->Value();
  EXPECT_EQ(Ask("SELECT 1"), Lines{"1"});
  EXPECT_EQ(std::get<std::string_view>(text), std::string(200, 'x')) << "the current row stays";
  int n = 2;
  for (; !recordset->Eof(); recordset->MoveNext(), ++n) {
    ASSERT_EQ(Line(*recordset), std::to_string(n) + " '" + std::string(200, 'x') + "' " +
                                    (n % 2 == 1 ? "null" : "1.5m") + " '-10:00:00'");
  }
  EXPECT_EQ(n, 60001);
}

TEST_F(MariaDbCursor, SaysWhatFailedInARestThatWasPutAsideWhenItGetsThere) {
  Run("CREATE TABLE g (i INTEGER)");
  Run("INSERT INTO g VALUES (1), (2), (3)");
  for (const bool is_aside : {true, false, true}) {
    const auto recordset =
        Read(connection_, "SELECT i, (SELECT a.i FROM g a WHERE a.i = g.i OR g.i = 3) FROM g");
    EXPECT_EQ(Line(*recordset), "1 1");
    if (is_aside) {
      EXPECT_EQ(Ask("SELECT 1"), Lines{"1"});
    }
    recordset->MoveNext();
    EXPECT_EQ(Line(*recordset), "2 2");
    EXPECT_EQ(ErrorOf([&] { recordset->MoveNext(); }).Number(), 1242);
    EXPECT_EQ(Ask("SELECT 2"), Lines{"2"});
  }
}

TEST_F(MariaDbCursor, SaysThatThereIsNoRoomForARestAndDisturbsNothingElse) {
  const NoFolderForTemporaryFiles none;
  Run("CREATE TABLE t (i INTEGER)");
  for (const bool is_in_transaction : {false, true}) {
    if (is_in_transaction) {
      Run("BEGIN");
      Run("INSERT INTO t VALUES (1)");
    }
    const auto recordset =
        Read(connection_, "SELECT CAST(seq AS CHAR(9)), REPEAT('x', 1000) FROM seq_1_to_20000");
    EXPECT_FALSE(recordset->Eof());
    EXPECT_EQ(Ask("SELECT 1"), Lines{"1"});
    EXPECT_EQ(Ask("SELECT 2"), Lines{"2"});
    EXPECT_EQ(MessageOf([&] { Rest(*recordset); }),
              "The folder for temporary files has no room for the rest of a result");
  }
  Run("COMMIT");
  EXPECT_EQ(Ask("SELECT i FROM t"), Lines{"1"});
}

TEST_F(MariaDbCursor, ReadsValuesOfAllKindsAlikeFromARestThatWasPutAside) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a VARCHAR(900), b BLOB, c BIGINT UNSIGNED, d TIME(3), "
      "e DATETIME(6), f FLOAT, g BIT(1), h BIT(12), i YEAR, j DATE, k CHAR(2), l SET('x', 'y'))");
  Run("INSERT INTO t SELECT seq, IF(seq % 3 = 0, NULL, REPEAT('x', seq % 4 * 200)), "
      "IF(seq % 5 = 0, NULL, LEFT('\\0\\0b', seq % 4)), IF(seq % 2, NULL, 18446744073709551615), "
      "IF(seq % 7 = 0, NULL, IF(seq % 2, '-10:00:00.5', '10:00:00.25')), "
      "IF(seq % 4 = 0, NULL, '2024-02-29 01:02:03.000004'), IF(seq % 2, NULL, 0.1), IF(seq % 3, NULL, seq % "
      "2), "
      "IF(seq % 2, NULL, b'100000000001'), IF(seq % 2, NULL, 1999), IF(seq % 2, NULL, '2024-02-29'), "
      "IF(seq % 2, '', NULL), IF(seq % 3, '', 'x,y') FROM seq_1_to_200");
  for (const char* sql : {"SELECT * FROM t ORDER BY id", "SHOW COLUMNS FROM t", "EXPLAIN SELECT 1"}) {
    const Lines direct = Ask(sql);
    const auto recordset = Read(connection_, sql);
    static_cast<void>(recordset->Eof());
    EXPECT_EQ(Ask("SELECT 1"), Lines{"1"});
    EXPECT_EQ(Rest(*recordset), direct) << sql;
  }
}

TEST_F(MariaDbCursor, PutsNoRestAsideForAStatementOfAConnectionThatWasLeft) {
  const NoFolderForTemporaryFiles none;
  constexpr char kLong[] = "SELECT CAST(seq AS CHAR(9)), REPEAT('x', 1000) FROM seq_1_to_20000 LIMIT 20000";
  auto left = Read(connection_, kLong, 1);
  EXPECT_EQ(Rest(*left).size(), 1u);
  const auto recordset = Read(connection_, kLong);
  EXPECT_FALSE(recordset->Eof());
  left.reset();
  EXPECT_EQ(Rest(*recordset).size(), 20000u);
}

TEST_F(MariaDbCursor, FollowsATableThatWasChangedSinceTheStatementWasPrepared) {
  Run("CREATE TABLE t (a INTEGER, b VARCHAR(10))");
  Run("INSERT INTO t VALUES (1, 'x')");
  const auto columns = [&] {
    const auto recordset = Read(connection_, "SELECT * FROM t", 10);
    std::string names;
    recordset->Eof();
    for (const platform::Field* field : recordset->Fields()) {
      names.append(field->Name())
          .append(" ")
          .append(std::to_string(static_cast<int>(field->Type())))
          .append(" ");
    }
    return names + Line(*recordset);
  };
  EXPECT_EQ(columns(), "a 3 b 202 1 'x'");
  Run("ALTER TABLE t ADD c DATE");
  EXPECT_EQ(columns(), "a 3 b 202 c 133 1 'x' null");
  Run("ALTER TABLE t DROP c");
  EXPECT_EQ(columns(), "a 3 b 202 1 'x'");
  Run("ALTER TABLE t CHANGE a z VARCHAR(5)");
  EXPECT_EQ(columns(), "z 202 b 202 '1' 'x'");
  Run("ALTER TABLE t RENAME COLUMN z TO y");
  EXPECT_EQ(columns(), "y 202 b 202 '1' 'x'");
  Run("ALTER TABLE t MODIFY b BLOB");
  EXPECT_EQ(columns(), "y 202 b 205 '1' x'78'");
}

TEST_F(MariaDbCursor, CarriesAChangeThatYieldsRowsOutOnceWhenTheTableWasChanged) {
  Run("CREATE TABLE T (K INTEGER AUTO_INCREMENT PRIMARY KEY, A INTEGER)");
  constexpr char kInsert[] = "INSERT INTO T (A) VALUES (1) RETURNING *";
  EXPECT_EQ(Ask(kInsert), Lines{"1 1"});
  Connect(database_.ConnectionString())->Execute("ALTER TABLE T ADD B INTEGER");
  EXPECT_EQ(Ask(kInsert), Lines{"2 1 null"});
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM T"), Lines{"2"});
}

TEST_F(MariaDbCursor, SendsAsATextWhatCannotBePrepared) {
  Run("PREPARE s FROM 'SELECT 7 AS a, NULL AS b UNION SELECT 8, \"x\"'");
  EXPECT_EQ(Ask("EXECUTE s"), (Lines{"'7' null", "'8' 'x'"}));
  EXPECT_EQ(ErrorOf([&] { Run("EXECUTE none"); }).Number(), 1243);
  EXPECT_EQ(Ask("EXECUTE s").size(), 2u);
  EXPECT_EQ(Ask("SELECT 1"), Lines{"1"});
}

TEST_F(MariaDbCursor, FetchesNoMoreThanIsAskedFor) {
  Run("SET @seen = 0");
  EXPECT_EQ(Ask("SELECT @seen := @seen + 1 FROM seq_1_to_100000", 5).size(), 5u);
  EXPECT_EQ(Ask("SELECT CAST(@seen AS INTEGER)"), Lines{"5"});
}

TEST_F(MariaDbCursor, LimitsAQueryBehindAnyComment) {
  for (const char* comment : {"# a\n# b\n", "-- a\n /* b */ (#c\n"}) {
    Run("SET @seen = 0");
    const std::string end = std::string(comment).find('(') == std::string::npos ? "" : ")";
    EXPECT_EQ(Ask(comment + std::string("SELECT @seen := @seen + 1 FROM seq_1_to_100000") + end, 5).size(),
              5u);
    EXPECT_EQ(Ask("SELECT CAST(@seen AS INTEGER)"), Lines{"5"}) << comment;
  }
}

TEST_F(MariaDbCursor, DoesNotPutALimitWhereItWouldChangeAStatement) {
  Run("CREATE TABLE t (i INTEGER)");
  Run("INSERT INTO t VALUES (1), (2), (3)");
  EXPECT_FALSE(Read(connection_, "UPDATE t SET i = 0", 1)->IsOpen());
  EXPECT_EQ(Ask("SELECT COUNT(*) FROM t WHERE i = 0"), Lines{"3"});
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Ask("SELECT i FROM t LIMIT 2", 100).size(), 2u);
    EXPECT_EQ(Ask("SELECT i FROM t FOR UPDATE", 2).size(), 2u);
    EXPECT_EQ(Ask("SELECT i FROM t -- all", 2).size(), 2u);
    EXPECT_EQ(Ask("SHOW TABLES", 100), Lines{"'t'"});
  }
}

TEST_F(MariaDbCursor, OrdersEqualRowsOfAJoinAlikeOnAllPages) {
  Run("CREATE TABLE a (i INTEGER PRIMARY KEY, k INTEGER)");
  Run("CREATE TABLE b (i INTEGER, j INTEGER, PRIMARY KEY (i, j))");
  Run("INSERT INTO a SELECT seq, seq % 2 FROM seq_1_to_50");
  Run("INSERT INTO b SELECT a.i, seq FROM a JOIN seq_1_to_4");
  const std::string sql = "SELECT x.k, x.i, b.j FROM a x JOIN b ON b.i = x.i ORDER BY x.k DESC";
  Lines expected = Ask("SELECT x.k, x.i, b.j FROM a x JOIN b ON b.i = x.i ORDER BY x.k DESC, 2 DESC, 3 DESC");
  Lines pages;
  for (int passed = 0; passed < 200; passed += 7) {
    const Lines page = Page(connection_, sql, passed + 7, passed);
    pages.insert(pages.end(), page.begin(), page.end());
  }
  EXPECT_EQ(pages, expected);
}

TEST_F(MariaDbCursor, OrdersATableThatWasMadeAfterItWasAskedFor) {
  const std::string sql = "SELECT i, k FROM late ORDER BY k DESC";
  EXPECT_EQ(ErrorOf([&] { Ask(sql, 5); }).Number(), 1146);
  const auto other = Connect(database_.ConnectionString());
  other->Execute("CREATE TABLE late (i INTEGER PRIMARY KEY, k INTEGER)");
  other->Execute("INSERT INTO late VALUES (1, 7), (2, 7), (3, 7)");
  EXPECT_EQ(Ask(sql, 2), (Lines{"3 7", "2 7"}));
}

TEST_F(MariaDbCursor, OrdersEqualRowsByTheirKeyAlsoBehindALongResultThatWasLeft) {
  Run("CREATE TABLE t (i INTEGER PRIMARY KEY, k INTEGER)");
  Run("INSERT INTO t VALUES (1, 7), (2, 7), (3, 7)");
  Read(connection_, "SELECT CAST(seq AS CHAR(9)), REPEAT('x', 1000) FROM seq_1_to_20000")->Eof();
  EXPECT_EQ(Ask("SELECT i, k FROM t ORDER BY k DESC", 2), (Lines{"3 7", "2 7"}));
}

TEST_F(MariaDbCursor, LeavesTheOrderOfATableWithoutAKeyAsItIs) {
  Run("CREATE TABLE t (i INTEGER NULL UNIQUE, k INTEGER)");
  Run("INSERT INTO t VALUES (2, 1), (1, 1), (3, 0)");
  EXPECT_EQ(Ask("SELECT i FROM t ORDER BY k", 1), Lines{"3"});
  EXPECT_EQ(Ask("SELECT DISTINCT k FROM t ORDER BY k", 5), (Lines{"0", "1"}));
}

TEST_F(MariaDbCursor, DoesNotBelieveTheOriginThatASubqueryMakesUp) {
  Run("CREATE TABLE Goods (id INTEGER PRIMARY KEY, name VARCHAR(9))");
  Run("CREATE TABLE Other (id INTEGER PRIMARY KEY, label VARCHAR(9))");
  Run("INSERT INTO Goods VALUES (1, 'goods')");
  Run("INSERT INTO Other VALUES (1, 'other')");
  for (const char* sql : {"SELECT id, name FROM (SELECT id, label AS name FROM Other) Goods",
                          "WITH Goods AS (SELECT id, label AS name FROM Other) SELECT id, name FROM Goods"}) {
    const auto recordset = Edit(connection_, sql);
    EXPECT_EQ(ValueOf(*recordset, "name"), "'other'");
    EXPECT_EQ(MessageOf([&] {
                FieldOf(*recordset, "name").SetValue("z");
                recordset->Update();
              }),
              "The records cannot be changed: no field shows a column of a table")
        << sql;
  }
  EXPECT_EQ(Ask("SELECT name FROM Goods"), Lines{"'goods'"});
}

TEST_F(MariaDbCursor, StoresAndFindsTheDayThatStandsForNoDateElsewhere) {
  Run("CREATE TABLE t (ID INTEGER PRIMARY KEY, a DATETIME(3), b DATE, c TIME)");
  Run("INSERT INTO t VALUES (1, '1899-12-30 10:11:12.5', '1899-12-30', '10:11:12'), (2, '2001-02-03', NULL, "
      "NULL)");
  const auto recordset = Edit(connection_, "SELECT * FROM t ORDER BY ID");
  recordset->SetUpdateCriteria(platform::UpdateCriteria::kAllColumns);
  const auto set_all = [&](const platform::DateTime& time) {
    for (const char* field : {"a", "b", "c"}) FieldOf(*recordset, field).SetValue(platform::Variant(time));
    recordset->Update();
  };
  set_all({1899, 12, 30, 11, 12, 13});
  set_all({1899, 12, 30, 12, 13, 14});
  recordset->MoveNext();
  set_all({1899, 12, 30, 0, 0, 1});
  EXPECT_EQ(Ask("SELECT CAST(a AS CHAR), CAST(b AS CHAR), CAST(c AS CHAR) FROM t ORDER BY ID"),
            (Lines{"'1899-12-30 12:13:14.000' '1899-12-30' '12:13:14'",
                   "'1899-12-30 00:00:01.000' '1899-12-30' '00:00:01'"}));
}

TEST_F(MariaDbCursor, RefusesToChangeATableThatIsReadTwice) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, up INTEGER, name VARCHAR(9))");
  Run("INSERT INTO t VALUES (1, 2, 'a'), (2, 2, 'a')");
  const auto recordset = Edit(connection_, "SELECT a.id, b.name FROM t a JOIN t b ON b.id = a.up");
  FieldOf(*recordset, "name").SetValue("z");
  EXPECT_EQ(MessageOf([&] { recordset->Update(); }),
            "The records cannot be changed: the query reads the table more than once");
}

TEST_F(MariaDbCursor, ChangesARecordOfATableThatSomebodyElseHasAltered) {
  Run("CREATE TABLE t (ID INTEGER PRIMARY KEY, a INTEGER)");
  Run("INSERT INTO t VALUES (1, 1)");
  const auto save = [&](const char* field, const std::string& value) {
    const auto recordset = Edit(connection_, "SELECT * FROM t WHERE ID = 1");
    recordset->Eof();
    FieldOf(*recordset, field).SetValue(value);
    recordset->Update();
  };
  save("a", "2");
  const auto other = Connect(database_.ConnectionString());
  const std::pair<const char*, const char*> changes[] = {
      {"ADD b INTEGER", "b"}, {"RENAME COLUMN a TO z", "z"}, {"MODIFY b VARCHAR(9)", "b"}, {"DROP z", "b"}};
  int value = 3;
  for (const auto& [change, field] : changes) {
    other->Execute("ALTER TABLE t " + std::string(change));
    save(field, std::to_string(++value));
  }
  EXPECT_EQ(Ask("SELECT * FROM t"), Lines{"1 '7'"});
}

TEST_F(MariaDbCursor, FindsAColumnThatWasAddedSince) {
  Run("CREATE TABLE t (id INTEGER AUTO_INCREMENT PRIMARY KEY, a INTEGER)");
  const auto add = [&](const char* field) {
    const auto recordset = Edit(connection_, "SELECT * FROM t");
    recordset->AddNew();
    FieldOf(*recordset, field).SetValue("5");
    recordset->Update();
    return ValueOf(*recordset, "id");
  };
  EXPECT_EQ(add("a"), "1");
  Run("ALTER TABLE t ADD b INTEGER");
  EXPECT_EQ(add("b"), "2");
  EXPECT_EQ(Ask("SELECT * FROM t"), (Lines{"1 5 null", "2 null 5"}));
}

TEST_F(MariaDbCursor, FindsAColumnThatWasAddedSinceAQueryWasOpenSeveralTimesAtOnce) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY)");
  const std::string sql = "SELECT * FROM t";
  {
    std::vector<RecordsetPtr> open;
    for (int i = 0; i < 3; ++i) open.push_back(Edit(connection_, sql));
  }
  Connect(database_.ConnectionString())->Execute("ALTER TABLE t ADD a INTEGER");
  const auto recordset = Edit(connection_, sql);
  recordset->AddNew();
  EXPECT_EQ(recordset->Fields().size(), 2u);
}

TEST_F(MariaDbCursor, SaysAsOftenAsAskedThatAColumnOfAKeptQueryIsGone) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a INTEGER)");
  Run("INSERT INTO t VALUES (1, 2)");
  const std::string sql = "SELECT id, a FROM t";
  EXPECT_EQ(Line(*Edit(connection_, sql)), "1 2");
  const auto other = Connect(database_.ConnectionString());
  other->Execute("ALTER TABLE t RENAME COLUMN a TO z");
  for (int i = 0; i < 2; ++i) {
    const auto recordset = Edit(connection_, sql);
    EXPECT_EQ(ErrorOf([&] { recordset->AddNew(); }).Number(), 1054);
    EXPECT_EQ(ErrorOf([&] { recordset->AddNew(); }).Number(), 1054);
  }
  other->Execute("ALTER TABLE t RENAME COLUMN z TO a");
  EXPECT_EQ(Line(*Edit(connection_, sql)), "1 2");
}

TEST_F(MariaDbCursor, ReadsOnWhenAKeptStatementIsGivenTooFewValues) {
  const auto open = [&](std::int64_t max_records, std::vector<platform::Variant> values) {
    const auto recordset = database::MakeRecordset();
    recordset->SetMaxRecords(max_records);
    recordset->Open(*MakeCommand(connection_, "SELECT CAST(? AS CHAR(9))", std::move(values)));
    return Rest(*recordset);
  };
  for (const std::int64_t max_records : {0, 10}) {
    for (const std::int64_t limit : {0, 10}) EXPECT_EQ(open(limit, {std::string("a")}), Lines{"'a'"});
    const auto recordset = Read(connection_, "SELECT CAST(seq AS INTEGER) FROM seq_1_to_60000");
    EXPECT_EQ(Line(*recordset), "1");
    EXPECT_EQ(MessageOf([&] { open(max_records, {}); }),
              "The statement expects 1 parameter value, but 0 were given");
    EXPECT_EQ(Rest(*recordset).size(), 60000u) << max_records;
  }
}

}  // namespace

}  // namespace dralo::tests
