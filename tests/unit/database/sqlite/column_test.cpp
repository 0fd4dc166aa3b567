#include <string>
#include <utility>
#include <vector>

#include "dralo/type_code.h"
#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {

namespace {

using platform::TypeCode;

class SqliteColumn : public SqliteFile {
 protected:
  /// The type code of a column that declares `type`.
  int TypeOf(const std::string& type) {
    Run("CREATE TABLE t (c " + type + ")");
    const int code = static_cast<int>(Read(Database(), "SELECT c FROM t")->Fields()[0]->Type());
    Run("DROP TABLE t");
    return code;
  }

  bool IsNullable(const std::string& sql) {
    return (Read(Database(), sql)->Fields()[0]->Attributes() & platform::kFieldIsNullable) != 0;
  }
};

TEST_F(SqliteColumn, HasTheCodeOfItsDeclaredType) {
  const std::pair<int, std::vector<std::string>> codes[] = {
      {20, {"BIGINT"}},
      {16, {"TINYINT"}},
      {2, {"SMALLINT"}},
      {3, {"INTEGER", "INT", "Integer"}},
      {5, {"REAL", "FLOAT", "DOUBLE"}},
      {131, {"DECIMAL", "NUMERIC(10,2)"}},
      {6, {"MONEY", "CURRENCY"}},
      {11, {"BOOLEAN", "BOOL", "BIT"}},
      {7, {"DATE", "DATETIME", "TIMESTAMP"}},
      {134, {"TIME"}},
      {202, {"CHAR(3)", "NCHAR(3)", "VARCHAR(3)", "NVARCHAR(3)", "varchar (3)"}},
      {203, {"TEXT", "CLOB", "MEMO"}},
      {205, {"BLOB"}},
      {72, {"UUID"}},
      // By what they contain:
      {3, {"UNSIGNED BIG INT", "MEDIUMINT"}},
      {202, {"CHARACTER VARYING(9)"}},
      {203, {"LONGTEXT"}},
      {205, {"TINYBLOB"}},
      {5, {"DOUBLE PRECISION", "FLOAT4", "REALLY"}},
      // Like an expression:
      {202, {"STRING", "", "JSON"}},
  };
  for (const auto& [code, types] : codes) {
    for (const std::string& type : types) EXPECT_EQ(TypeOf(type), code) << type;
  }
}

TEST_F(SqliteColumn, HasTheSizeThatTextDeclares) {
  Run("CREATE TABLE t (a VARCHAR(40), b NCHAR( 7 ), c VARCHAR, d TEXT(9), e DECIMAL(10,2), f CHARACTER "
      "VARYING(12))");
  const auto recordset = Read(Database(), "t");
  Lines sizes;
  for (platform::Field* field : recordset->Fields()) sizes.push_back(std::to_string(field->DefinedSize()));
  EXPECT_EQ(sizes, (Lines{"40", "7", "0", "0", "0", "12"}));
}

TEST_F(SqliteColumn, IsNullableUnlessItMustNotBeNull) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT NOT NULL, b TEXT)");
  Run("CREATE TABLE pair (a INTEGER, b INTEGER, PRIMARY KEY (a, b))");
  Run("CREATE TABLE word (w TEXT PRIMARY KEY) WITHOUT ROWID");
  EXPECT_FALSE(IsNullable("SELECT id FROM t"));
  EXPECT_FALSE(IsNullable("SELECT a FROM t"));
  EXPECT_TRUE(IsNullable("SELECT b FROM t"));
  EXPECT_TRUE(IsNullable("SELECT id + 1 FROM t"));
  EXPECT_FALSE(IsNullable("SELECT rowid FROM t"));
  EXPECT_FALSE(IsNullable("SELECT rowid FROM pair"));
  EXPECT_TRUE(IsNullable("SELECT a FROM pair"));
  EXPECT_FALSE(IsNullable("SELECT w FROM word"));
  EXPECT_FALSE(IsNullable("SELECT x FROM (SELECT id AS x FROM t)"));
}

TEST_F(SqliteColumn, OfAnExpressionHasTheTypeOfItsFirstValue) {
  const auto recordset = Read(
      Database(), "SELECT 1, 1.5, 'x', x'00', NULL, 2 AS n UNION ALL SELECT 'a', 'a', 'a', 'a', 'a', 'a'");
  std::vector<int> types;
  for (platform::Field* field : recordset->Fields()) types.push_back(static_cast<int>(field->Type()));
  EXPECT_EQ(types, (std::vector<int>{20, 5, 202, 205, 202, 20}));
  recordset->MoveNext();
  EXPECT_EQ(recordset->Fields()[0]->Type(), TypeCode::kBigInt);
  EXPECT_EQ(Line(*recordset), "'a' 'a' 'a' 'a' 'a' 'a'");
}

TEST_F(SqliteColumn, OfAnEmptyResultHasTheTypeOfNull) {
  EXPECT_EQ(Read(Database(), "SELECT 1 AS n WHERE 0")->Fields()[0]->Type(), TypeCode::kVarWideChar);
}

TEST_F(SqliteColumn, KeepsItsTypeThroughAViewAndASubquery) {
  Run("CREATE TABLE t (id INTEGER PRIMARY KEY, born DATE)");
  Run("CREATE VIEW v AS SELECT id, born AS b FROM t");
  EXPECT_EQ(Read(Database(), "SELECT b FROM v")->Fields()[0]->Type(), TypeCode::kDate);
  EXPECT_EQ(Read(Database(), "SELECT q FROM (SELECT b AS q FROM v)")->Fields()[0]->Type(), TypeCode::kDate);
}

/// Both connections keep their statements; the tables change in between.
class SqliteSchemaChange : public SqliteFile {
 protected:
  SqliteSchemaChange() {
    Run("CREATE TABLE t (id INTEGER PRIMARY KEY, a TEXT)");
    Run("INSERT INTO t VALUES (1, 'x')");
    reader_ = Connect(ConnectionString());
  }

  static Lines Names(const RecordsetPtr& recordset) {
    Lines names;
    for (platform::Field* field : recordset->Fields()) names.emplace_back(field->Name());
    return names;
  }

  ConnectionPtr reader_;
};

TEST_F(SqliteSchemaChange, ShowsInAStatementThatIsUsedAgain) {
  for (const std::int64_t limit : {0, 5})
    EXPECT_EQ(Rest(*Read(reader_, "SELECT * FROM t", limit)), Lines{"1 'x'"});
  Run("ALTER TABLE t ADD COLUMN d DATE DEFAULT '2024-01-02'");
  for (const std::int64_t limit : {0, 5}) {
    EXPECT_EQ(Rest(*Read(reader_, "SELECT * FROM t", limit)), Lines{"1 'x' 2024-01-02 00:00:00"});
  }
}

TEST_F(SqliteSchemaChange, ShowsInTheFieldsBeforeARowIsRead) {
  for (const std::int64_t limit : {0, 5})
    EXPECT_EQ(Names(Read(reader_, "SELECT * FROM t", limit)), (Lines{"id", "a"}));
  Run("ALTER TABLE t ADD COLUMN d DATE");
  for (const std::int64_t limit : {0, 5}) {
    const auto recordset = Read(reader_, "SELECT * FROM t", limit);
    EXPECT_EQ(Names(recordset), (Lines{"id", "a", "d"}));
    EXPECT_EQ(recordset->Fields()[2]->Type(), TypeCode::kDate);
    EXPECT_EQ(Line(*recordset), "1 'x' null");
  }
}

TEST_F(SqliteSchemaChange, ShowsInARecordThatIsAdded) {
  Names(Edit(reader_, "SELECT * FROM t"));
  Run("ALTER TABLE t ADD COLUMN d DATE");
  const auto recordset = Edit(reader_, "SELECT * FROM t");
  recordset->AddNew();
  FieldOf(*recordset, "d").SetValue("2024-01-02");
  recordset->Update();
  EXPECT_EQ(Rows("SELECT id, d FROM t WHERE id > 1"), Lines{"2 2024-01-02 00:00:00"});
}

TEST_F(SqliteSchemaChange, ShowsInAnEmptyResult) {
  const char* sql = "SELECT * FROM t WHERE id = 0";
  EXPECT_EQ(Names(Read(reader_, sql)), (Lines{"id", "a"}));
  Run("ALTER TABLE t ADD COLUMN d DATE");
  const auto recordset = Read(reader_, sql);
  EXPECT_TRUE(recordset->Eof());
  EXPECT_EQ(Names(recordset), (Lines{"id", "a", "d"}));
}

TEST_F(SqliteSchemaChange, BetweenTheFieldsAndTheFirstRowIsReported) {
  const auto recordset = Edit(reader_, "SELECT * FROM t");
  Names(recordset);
  Run("ALTER TABLE t ADD COLUMN d DATE");

  EXPECT_EQ(MessageOf([&] { recordset->Eof(); }),
            "The table was changed while the recordset was being opened; open it again");
  EXPECT_EQ(Names(Edit(reader_, "SELECT * FROM t")), (Lines{"id", "a", "d"}));
}

TEST_F(SqliteSchemaChange, ReportsATableThatIsGone) {
  Rest(*Read(reader_, "SELECT * FROM t", 5));
  Run("DROP TABLE t");
  const auto recordset = Read(reader_, "SELECT * FROM t", 5);
  const auto error = ErrorOf([&] { recordset->Eof(); });
  EXPECT_STREQ(error.what(), "no such table: t");
  EXPECT_EQ(error.Source(), "SELECT * FROM t");
}

}  // namespace

}  // namespace dralo::tests
