#include "data/databases.h"

namespace dralo::tests {

namespace {

/// The statements that pages make of a query.
class Querying : public DatabaseContract {
 protected:
  static constexpr int kMany = 3000;

  /// The table Many of records numbered from 1.
  void CreateMany() {
    connection_->Execute(
        "CREATE TABLE Many (N INTEGER NOT NULL PRIMARY KEY, Label VARCHAR(300), Kept INTEGER)");
    connection_->Execute("BEGIN");
    for (int first = 1; first <= kMany; first += 100) {
      std::string insert = "INSERT INTO Many (N, Label) VALUES ";
      for (int n = first; n < first + 100; ++n) {
        insert += (n == first ? "(" : ", (") + std::to_string(n) + ", 'label " + std::to_string(n) + "')";
      }
      connection_->Execute(insert);
    }
    connection_->Execute("COMMIT");
  }

  Lines Count(const std::string& sql) {
    return Rows(connection_, "SELECT COUNT(*) AS ANT FROM (" + sql + ") DRALOALIAS");
  }
};
INSTANTIATE_TEST_SUITE_P(Databases, Querying, kDatabases, DatabaseName);

TEST_P(Querying, CountsTheRecordsOfAQuery) {
  EXPECT_EQ(Count("SELECT ID, Name FROM Goods"), Lines{"5"});
  EXPECT_EQ(Count("SELECT * FROM Goods WHERE Name LIKE '%l%' AND Note IS NULL"), Lines{"2"});
  EXPECT_EQ(Count("SELECT Active, COUNT(*) AS Number FROM Goods GROUP BY Active"), Lines{"3"});
  EXPECT_EQ(Count("SELECT a.ID, b.ID AS Other FROM Goods a JOIN Goods b ON b.ID < a.ID"), Lines{"10"});
  EXPECT_EQ(Count("SELECT ID FROM Goods WHERE ID = 0"), Lines{"0"});
}

TEST_P(Querying, SortsByFieldsAndNumbers) {
  EXPECT_EQ(Rows(connection_, "SELECT ID, Name FROM Goods ORDER BY Name DESC").front(), "5 'Easel'");
  EXPECT_EQ(Rows(connection_, "SELECT ID, Name FROM Goods ORDER BY 2 DESC").front(), "5 'Easel'");
  EXPECT_EQ(Rows(connection_, "SELECT Stock, ID FROM Goods WHERE ID <> 3 ORDER BY Active, Stock"),
            (Lines{"2 5", "10 2", "1 4", "3 1"}));
}

TEST_P(Querying, RefusesTwoOrders) {
  const std::string sql = "SELECT ID FROM Goods ORDER BY ID ORDER BY Name";
  const auto error = ErrorOf([&] { Rows(connection_, sql); });
  EXPECT_NE(error.Description().find("ORDER"), std::string::npos) << error.Description();
  EXPECT_EQ(error.Source(), sql);
}

TEST_P(Querying, FindsARecordInAnotherQuery) {
  EXPECT_EQ(Rows(connection_,
                 "SELECT * FROM (SELECT ID, Name FROM Goods WHERE Stock > 1) DRTEMPTABLE WHERE (ID=5)"),
            Lines{"5 'Easel'"});
  EXPECT_EQ(Rows(connection_, "SELECT ID, Name FROM Goods WHERE (Name='Drum') AND (ID=4)"),
            Lines{"4 'Drum'"});
}

TEST_P(Querying, LooksAtTheFieldsOfAQueryThroughOneRecord) {
  const auto recordset = database::MakeRecordset();
  recordset->SetMaxRecords(1);
  recordset->SetCursorLocation(platform::CursorLocation::kClient);
  recordset->Open("SELECT * FROM Goods WHERE ID > 2", connection_, platform::CursorType::kForwardOnly,
                  platform::LockType::kReadOnly);

  EXPECT_FALSE(recordset->Eof());
  EXPECT_EQ(recordset->Fields().size(), 10u);
  EXPECT_EQ(FieldOf(*recordset, "Active").Type(), GetParam().boolean.code);
  recordset->MoveNext();
  EXPECT_TRUE(recordset->Eof());
}

TEST_P(Querying, YieldsTheFirstColumnForANewKey) {
  EXPECT_EQ(Rows(connection_, "SELECT MAX(ID)+1 FROM Goods"), Lines{"6"});
}

TEST_P(Querying, YieldsTwoColumnsOfOneName) {
  const auto recordset =
      Read(connection_, "SELECT a.Name, b.Name FROM Goods a JOIN Goods b ON b.ID = a.ID + 1 ORDER BY a.ID");
  EXPECT_EQ(Rest(*recordset).front(), "'Anvil' 'Bell'");
}

TEST_P(Querying, ReadsManyRecordsInTheirOrder) {
  CreateMany();
  const auto recordset = Read(connection_, "SELECT N, Label FROM Many ORDER BY N");
  int n = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    ++n;
    ASSERT_EQ(Line(*recordset), std::to_string(n) + " 'label " + std::to_string(n) + "'");
  }
  EXPECT_EQ(n, kMany);
}

TEST_P(Querying, EndsAtALimitFarFromTheFirstRecord) {
  CreateMany();
  EXPECT_EQ(Page(connection_, "SELECT N FROM Many ORDER BY N", 2000, 1997), (Lines{"1998", "1999", "2000"}));
  EXPECT_EQ(Page(connection_, "SELECT N FROM Many ORDER BY N", kMany + 1, kMany - 1), Lines{"3000"});
}

TEST_P(Querying, LeavesALongResultInTheMiddle) {
  CreateMany();
  for (int i = 0; i < 3; ++i) {
    const auto recordset = Read(connection_, "SELECT N FROM Many ORDER BY N");
    recordset->Move(i * 700);
    recordset->Close();
  }
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Many"), Lines{"3000"});
}

TEST_P(Querying, ReadsALookupForEveryRecordOfALongResult) {
  CreateMany();
  const auto recordset = Read(connection_, "SELECT N FROM Many ORDER BY N");
  int n = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    ++n;
    if (n % 100 != 0) continue;
    ASSERT_EQ(Rows(connection_, "SELECT ID,Name FROM Goods ORDER BY Name").size(), 5u);
  }
  EXPECT_EQ(n, kMany);
}

TEST_P(Querying, ReadsOnWhileRecordsAreSavedAndStatementsFail) {
  CreateMany();
  const auto recordset = Read(connection_, "SELECT N FROM Many ORDER BY N");
  const auto saving = Edit(connection_, "SELECT ID, Stock FROM Goods WHERE ID = 1");
  int n = 0;
  for (; !recordset->Eof(); recordset->MoveNext()) {
    ASSERT_EQ(Line(*recordset), std::to_string(++n));
    if (n % 1000 != 0) continue;
    FieldOf(*saving, "Stock").SetValue(std::int64_t{n});
    saving->Update();
    connection_->Execute("UPDATE Many SET Kept = 1 WHERE N = 1");
    EXPECT_THROW(Rows(connection_, "SELECT Nothing FROM Goods"), platform::Error);
  }
  EXPECT_EQ(n, kMany);
  EXPECT_EQ(Rows(Connect(ConnectionString()), "SELECT Stock FROM Goods WHERE ID = 1"), Lines{"3000"});
}

/// A prepared statement that was kept is closed here while the records are read.
TEST_P(Querying, ReadsOnWhileAKeptStatementIsPreparedAnew) {
  constexpr const char* kNames = "SELECT ID, Name FROM Goods";
  Rest(*Edit(connection_, kNames));
  const auto goods = Read(connection_, "SELECT ID FROM Goods ORDER BY ID");
  EXPECT_EQ(Line(*goods), "1");
  EXPECT_EQ(Edit(connection_, kNames)->Fields().size(), 2U);
  goods->MoveNext();
  EXPECT_EQ(Rest(*goods), (Lines{"2", "3", "4", "5"}));
}

/// Prepared statements are kept, but not all of them: one is closed here while the records are read.
TEST_P(Querying, ReadsOnWhileStatementsAreClosed) {
  auto other = Edit(connection_, "SELECT ID, Name FROM Goods");
  for (int i = 0; i < 40; ++i) Rows(connection_, "SELECT Name FROM Goods WHERE ID = " + std::to_string(i));
  const auto goods = Read(connection_, "SELECT ID FROM Goods ORDER BY ID");
  EXPECT_EQ(Line(*goods), "1");
  other.reset();
  goods->MoveNext();
  EXPECT_EQ(Rest(*goods), (Lines{"2", "3", "4", "5"}));
}

TEST_P(Querying, FailsInTheMiddleOfAResultAndGoesOnWithTheNext) {
  EXPECT_THROW(Rows(connection_, GetParam().fails_at_three), platform::Error);
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

}  // namespace

}  // namespace dralo::tests
