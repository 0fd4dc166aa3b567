#include "unit/database/sqlite/sqlite_file.h"

namespace dralo::tests {

namespace {

class SqliteValue : public SqliteFile {
 protected:
  /// What a column of `type` reads as that was given `literal`.
  std::string Value(const std::string& type, const std::string& literal) {
    Run("CREATE TABLE t (c " + type + ")");
    Run("INSERT INTO t VALUES (" + literal + ")");
    const Lines lines = Rows("SELECT c FROM t");
    Run("DROP TABLE t");
    return lines.front();
  }
};

TEST_F(SqliteValue, OfABooleanIsATruthValue) {
  EXPECT_EQ(Value("BOOLEAN", "1"), "true");
  EXPECT_EQ(Value("BIT", "0"), "false");
  EXPECT_EQ(Value("BOOL", "-1"), "true");
  EXPECT_EQ(Value("BOOL", "'perhaps'"), "'perhaps'");
  EXPECT_EQ(Value("BOOL", "NULL"), "null");
}

TEST_F(SqliteValue, OfADateIsADate) {
  EXPECT_EQ(Value("DATE", "'2024-02-29'"), "2024-02-29 00:00:00");
  EXPECT_EQ(Value("DATETIME", "'2024-02-29 13:14'"), "2024-02-29 13:14:00");
  EXPECT_EQ(Value("TIMESTAMP", "'2024-02-29T13:14:15.5Z'"), "2024-02-29 13:14:15.500000000");
  EXPECT_EQ(Value("DATETIME", "0"), "1970-01-01 00:00:00");
  EXPECT_EQ(Value("DATETIME", "1709212455"), "2024-02-29 13:14:15");
  EXPECT_EQ(Value("DATETIME", "-1"), "1969-12-31 23:59:59");
  EXPECT_EQ(Value("DATETIME", "253402300799"), "9999-12-31 23:59:59");
}

TEST_F(SqliteValue, ThatIsNoDateStaysWhatItIs) {
  EXPECT_EQ(Value("DATE", "'soon'"), "'soon'");
  EXPECT_EQ(Value("DATE", "'2023-02-29'"), "'2023-02-29'");
  EXPECT_EQ(Value("DATE", "2460000.5"), "2460000.5");
  EXPECT_EQ(Value("DATE", "253402300800"), "253402300800");
  EXPECT_EQ(Value("DATE", "x'41'"), "x'41'");
}

TEST_F(SqliteValue, OfATimeIsATimeOfDay) {
  EXPECT_EQ(Value("TIME", "'13:14'"), "1899-12-30 13:14:00");
  EXPECT_EQ(Value("TIME", "'13:14:15'"), "1899-12-30 13:14:15");
  EXPECT_EQ(Value("TIME", "'noon'"), "'noon'");
  EXPECT_EQ(Value("TIME", "5"), "5");
}

TEST_F(SqliteValue, OfADecimalIsAsExactAsItIsStored) {
  EXPECT_EQ(Value("DECIMAL(10,2)", "'12'"), "12");
  EXPECT_EQ(Value("DECIMAL(10,2)", "'12.50'"), "12.5");
  EXPECT_EQ(Value("MONEY", "'cheap'"), "'cheap'");
}

/// A column for numbers turns text into them, so the text must be there before the column is declared.
TEST_F(SqliteValue, OfADecimalThatIsStoredAsTextIsExact) {
  Run("CREATE TABLE t (c TEXT)");
  Run("INSERT INTO t VALUES ('12345678901234567890.10'), ('-0.5'), ('1e5'), ('.5')");
  Run("PRAGMA writable_schema = ON");
  Run("UPDATE sqlite_schema SET sql = 'CREATE TABLE t (c DECIMAL)'");
  EXPECT_EQ(tests::Rows(Connect(ConnectionString()), "SELECT c FROM t"),
            (Lines{"12345678901234567890.10m", "-0.5m", "'1e5'", "'.5'"}));
}

TEST_F(SqliteValue, OfAnIntegerColumnHasAllItsBits) {
  EXPECT_EQ(Value("INTEGER", "5000000000"), "5000000000");
  EXPECT_EQ(Value("BIGINT", "-9223372036854775808"), "-9223372036854775808");
  EXPECT_EQ(Value("TINYINT", "300"), "300");
  EXPECT_EQ(Value("INTEGER", "1.5"), "1.5");
  EXPECT_EQ(Value("INTEGER", "'many'"), "'many'");
}

TEST_F(SqliteValue, OfATextColumnIsText) {
  EXPECT_EQ(Value("TEXT", "5"), "'5'");
  EXPECT_EQ(Value("MEMO", "5"), "'5'");
  EXPECT_EQ(Value("UUID", "1.5"), "'1.5'");
  EXPECT_EQ(Value("VARCHAR(2)", "'longer'"), "'longer'");
  EXPECT_EQ(Value("TEXT", "''"), "''");
  EXPECT_EQ(Value("TEXT", "x'4142'"), "x'4142'");
}

TEST_F(SqliteValue, KeepsZeroBytesAndWhatIsNoUtf8) {
  EXPECT_EQ(Value("TEXT", "'a' || char(0) || 'b'"), std::string("'a\0b'", 5));
  EXPECT_EQ(Value("TEXT", "CAST(x'41FF80' AS TEXT)"), "'A\xFF\x80'");
}

TEST_F(SqliteValue, OfABlobIsBytes) {
  EXPECT_EQ(Value("BLOB", "x'00FF'"), "x'00FF'");
  EXPECT_EQ(Value("BLOB", "x''"), "x''");
  EXPECT_EQ(Value("BLOB", "zeroblob(3)"), "x'000000'");
  EXPECT_EQ(Value("BLOB", "'text'"), "'text'");
}

TEST_F(SqliteValue, WithoutADeclaredTypeIsAsItIsStored) {
  EXPECT_EQ(Value("", "5"), "5");
  EXPECT_EQ(Value("", "'5'"), "'5'");
  EXPECT_EQ(Value("", "0.5"), "0.5");
  EXPECT_EQ(Rows("SELECT 1 = 1, '2024-01-01', date('2024-01-01')"), Lines{"1 '2024-01-01' '2024-01-01'"});
}

TEST_F(SqliteValue, OfTextStandsInTheRowItself) {
  Run("CREATE TABLE t (c TEXT)");
  Run("INSERT INTO t VALUES ('some text that is longer than a short string')");
  const auto recordset = Read(Database(), "SELECT c FROM t");
  platform::Field& field = *recordset->Fields()[0];
  EXPECT_FALSE(recordset->Eof());
  EXPECT_EQ(std::get<std::string_view>(field.Value()).data(),
            std::get<std::string_view>(field.Value()).data());
}

TEST_F(SqliteValue, ReadsAUtf16Database) {
  Run("PRAGMA encoding = 'UTF-16'");
  EXPECT_EQ(Value("TEXT", "'\xC3\xA4\xE2\x82\xAC'"), "'\xC3\xA4\xE2\x82\xAC'");
  EXPECT_EQ(Value("DATE", "'2024-01-02'"), "2024-01-02 00:00:00");
}

}  // namespace

}  // namespace dralo::tests
