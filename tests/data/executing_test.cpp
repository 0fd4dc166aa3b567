#include "data/commands.h"
#include "data/databases.h"

namespace dralo::tests {

namespace {

class Executing : public DatabaseContract {};
INSTANTIATE_TEST_SUITE_P(Databases, Executing, kDatabases, DatabaseName);

TEST_P(Executing, CountsTheRecordsChanged) {
  std::int64_t affected = -2;
  const auto result = connection_->Execute("UPDATE Goods SET Stock = 0 WHERE ID < 4", &affected);

  EXPECT_EQ(affected, 3);
  EXPECT_FALSE(result->IsOpen());
}

TEST_P(Executing, ReturnsRows) {
  const auto result = connection_->Execute("SELECT Name FROM Goods WHERE ID = 4");

  ASSERT_TRUE(result->IsOpen());
  EXPECT_EQ(Rest(*result), Lines{"'Drum'"});
}

TEST_P(Executing, LeavesARecordsetClosedThatIsOpenedOnAStatementWithoutRows) {
  const auto recordset = Read(connection_, "DELETE FROM Goods WHERE ID = 1");

  EXPECT_FALSE(recordset->IsOpen());
  EXPECT_EQ(MessageOf([&] { recordset->Eof(); }), "The recordset is closed");
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"4"});
}

TEST_P(Executing, RefusesAnEmptyStatement) {
  for (const char* text : {"", "  "}) {
    EXPECT_EQ(MessageOf([&] { connection_->Execute(text); }), "The statement is empty") << text;
    EXPECT_EQ(MessageOf([&] { Read(connection_, text); }), "The statement is empty") << text;
  }
}

TEST_P(Executing, ReportsAFailureWithItsStatement) {
  const auto error =
      ErrorOf([&] { connection_->Execute("INSERT INTO Goods (ID, Name) VALUES (1, 'Twice')"); });

  EXPECT_NE(error.Number(), 0);
  EXPECT_EQ(error.Source(), "INSERT INTO Goods (ID, Name) VALUES (1, 'Twice')");
}

TEST_P(Executing, PassesParametersOfEveryKind) {
  const auto insert =
      MakeCommand(connection_,
                  "INSERT INTO Goods (ID, Name, Price, Stock, Active, Born, Seen, Weight, Note, Picture) "
                  "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
                  {std::int64_t{6}, std::string("O'Neil \"x\""), platform::Decimal{"1.5"}, std::int64_t{-3},
                   true, platform::DateTime{2024, 5, 6}, platform::DateTime{2024, 5, 6, 7, 8, 9}, 0.1,
                   platform::Null{}, platform::Bytes{0, 255}});
  Perform(insert);

  EXPECT_EQ(Rows(connection_, "SELECT * FROM Goods WHERE ID = 6"),
            Lines{"6 'O'Neil \"x\"' " + Decimal("1.50") +
                  " -3 true 2024-05-06 00:00:00 2024-05-06 07:08:09 0.1 null x'00FF'"});
  EXPECT_EQ(RowsOf(MakeCommand(connection_, "SELECT ID FROM Goods WHERE Born = ?",
                               {platform::DateTime{2024, 5, 6}})),
            Lines{"6"});
  EXPECT_EQ(
      RowsOf(MakeCommand(connection_, "SELECT ID FROM Goods WHERE Price = ?", {platform::Decimal{"1.50"}})),
      Lines{"6"});
  EXPECT_EQ(RowsOf(MakeCommand(connection_, "SELECT COUNT(*) FROM Goods WHERE Active = ?", {true})),
            Lines{"3"});
}

TEST_P(Executing, CountsTheRecordsThatABoundStatementChanges) {
  const std::vector<platform::Variant> id = {std::int64_t{4}};
  EXPECT_EQ(connection_->Run("UPDATE Goods SET Stock = 0 WHERE ID < ?", id), 3);
  EXPECT_EQ(connection_->Run("DELETE FROM Goods WHERE ID = ?", id), 1);
  EXPECT_EQ(connection_->Run("DELETE FROM Goods WHERE ID = ?", id), 0);
  EXPECT_EQ(Rows(connection_, "SELECT ID FROM Goods ORDER BY ID"), (Lines{"1", "2", "3", "5"}));
  EXPECT_THROW(connection_->Run("DELETE FROM Goods WHERE ID = ?"), platform::Error);
}

TEST_P(Executing, QuotesANameForAStatement) {
  EXPECT_EQ(connection_->QuoteName("a\"b`c"), Quoted("a\"b`c"));
  connection_->Run("CREATE TABLE " + connection_->QuoteName("Odd \"name`") + " (ID INTEGER)");
  EXPECT_EQ(connection_->Run("INSERT INTO " + Quoted("Odd \"name`") + " (ID) VALUES (1)"), 1);
}

TEST_P(Executing, QuotesANameWithTheLettersThatTheDatabaseKnows) {
  connection_->Run("CREATE TABLE " + Quoted("MixedLetters") + " (" + Quoted("Id") + " INTEGER)");
  const std::string table = connection_->QuoteExactName("MixedLetters");
  const std::string id = connection_->QuoteExactName("Id");
  EXPECT_EQ(connection_->Run("INSERT INTO " + table + " (" + id + ") VALUES (1)"), 1);
  EXPECT_EQ(connection_->QuoteExactName("a\"b`c"), Quoted("a\"b`c"));
}

TEST_P(Executing, SaysHowManyParametersAreExpected) {
  EXPECT_EQ(
      MessageOf([&] {
        RowsOf(MakeCommand(connection_, "SELECT ID FROM Goods WHERE ID = ? OR ID = ?", {std::int64_t{1}}));
      }),
      "The statement expects 2 parameter values, but 1 was given");
  EXPECT_EQ(MessageOf([&] {
              RowsOf(MakeCommand(connection_, "SELECT ID FROM Goods WHERE ID = ?", {true, true, true}));
            }),
            "The statement expects 1 parameter value, but 3 were given");
  EXPECT_EQ(MessageOf([&] { connection_->Execute("DELETE FROM Goods WHERE ID = ?"); }),
            "The statement expects 1 parameter value, but 0 were given");
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

TEST_P(Executing, ReadsTheTableThatACommandNames) {
  const auto command = MakeCommand(connection_, "Goods");
  command->command_type = platform::CommandType::kTable;
  EXPECT_EQ(RowsOf(command).size(), 5u);

  command->command_text = "SELECT * FROM Goods";
  EXPECT_THROW(RowsOf(command), platform::Error);
}

TEST_P(Executing, NeedsAConnection) {
  const auto command = MakeCommand(connection_, "SELECT 1");
  command->active_connection = nullptr;

  EXPECT_EQ(MessageOf([&] { RowsOf(command); }), "The recordset has no connection");
  EXPECT_EQ(MessageOf([&] { Read(nullptr, "SELECT 1"); }), "The recordset has no connection");
}

TEST_P(Executing, FailsOnAClosedConnection) {
  EXPECT_EQ(MessageOf([&] { connection_->Open(ConnectionString()); }),
            "The connection is open already; close it first");
  connection_->Close();
  connection_->Close();

  EXPECT_FALSE(connection_->IsOpen());
  EXPECT_EQ(MessageOf([&] { connection_->Execute("SELECT 1"); }), "The connection is closed");
  EXPECT_EQ(MessageOf([&] { Read(connection_, "SELECT 1"); }), "The connection is closed");
  connection_->Open(ConnectionString());
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

TEST_P(Executing, ClosesTheRecordsetsOfAConnectionThatCloses) {
  const auto reading = Read(connection_, "SELECT ID FROM Goods");
  const auto editing = Edit(connection_, "SELECT ID, Name FROM Goods");
  EXPECT_FALSE(reading->Eof());
  EXPECT_FALSE(editing->Eof());

  connection_->Close();

  EXPECT_EQ(MessageOf([&] { reading->MoveNext(); }), "The recordset is closed");
  EXPECT_EQ(MessageOf([&] { editing->AddNew(); }), "The recordset is closed");
}

TEST_P(Executing, KeepsTheConnectionOfARecordsetThatOutlivesIt) {
  const auto recordset = Read(connection_, "SELECT ID FROM Goods ORDER BY ID");
  connection_.reset();
  EXPECT_EQ(Rest(*recordset), (Lines{"1", "2", "3", "4", "5"}));
}

TEST_P(Executing, UndoesAnUnfinishedTransactionWhenTheConnectionCloses) {
  connection_->Execute("BEGIN");
  connection_->Execute("DELETE FROM Goods");
  connection_->Close();

  EXPECT_EQ(Rows(Connect(ConnectionString()), "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

TEST_P(Executing, ForgetsThePasswordInTheConnectionString) {
  const auto connection = database::MakeConnection(host::AllProviders());
  EXPECT_EQ(connection->ConnectionString(), "");
  const bool has_password = ConnectionString().find("hush") != std::string::npos;
  connection->Open(ConnectionString() + (has_password ? "" : ";Password=hush"));
  EXPECT_EQ(connection->ConnectionString().find("hush"), std::string::npos);
  EXPECT_NE(connection->ConnectionString(), "");
}

}  // namespace

}  // namespace dralo::tests
