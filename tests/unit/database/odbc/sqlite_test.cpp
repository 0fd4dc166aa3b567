#include "data/commands.h"
#include "unit/database/odbc/driver_test.h"

/// SQLite has a provider of its own; through ODBC it stands for a driver that nobody has looked at.
namespace dralo::tests {

namespace {

class SqliteDriver : public ::testing::Test {
 protected:
  void SetUp() override {
    connection_->Execute(
        "CREATE TABLE goods (id INTEGER PRIMARY KEY, name VARCHAR(20) NOT NULL, price DOUBLE, born DATE, "
        "seen TIMESTAMP, note TEXT, picture LONGVARBINARY)");
    for (const char* goods : {"'Bell', 0.25, '1999-12-31', '2024-03-01 10:20:30', 'loud', x'00FF'",
                              "'Anvil', 99.5, '2024-02-29', '2024-03-01 00:00:00', NULL, NULL",
                              "'Candle', NULL, NULL, NULL, 'wax', NULL"}) {
      connection_->Execute("INSERT INTO goods (name, price, born, seen, note, picture) VALUES (" +
                           std::string(goods) + ")");
    }
  }

  NewFile database_{"Driver=SQLite3;Database="};
  ConnectionPtr connection_ = Connect(database_.ConnectionString());
};

TEST_F(SqliteDriver, ShowsRecordsOfAllKindsPageByPage) {
  const std::string sql = "SELECT * FROM goods ORDER BY name";
  const Lines all = {"2 'Anvil' 99.5 2024-02-29 00:00:00 2024-03-01 00:00:00 null null",
                     "1 'Bell' 0.25 1999-12-31 00:00:00 2024-03-01 10:20:30 'loud' x'00FF'",
                     "3 'Candle' null null null 'wax' null"};
  EXPECT_EQ(Rows(connection_, sql), all);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Page(connection_, sql, 2, 0), (Lines{all[0], all[1]}));
    EXPECT_EQ(Page(connection_, sql, 3, 2), Lines{all[2]});
  }
}

TEST_F(SqliteDriver, SavesWhatIsReadBack) {
  const auto recordset = Edit(connection_, "SELECT * FROM goods WHERE id = 1");
  recordset->SetUpdateCriteria(platform::UpdateCriteria::kAllColumns);
  FieldOf(*recordset, "name").SetValue("Drum \xC3\xA4\xE2\x82\xAC");
  FieldOf(*recordset, "born").SetValue("2000-01-02");
  FieldOf(*recordset, "note").SetValue(std::string(5000, 'x'));
  recordset->Update();
  recordset->AddNew();
  FieldOf(*recordset, "name").SetValue("Easel");
  recordset->Update();
  EXPECT_EQ(
      Rows(connection_, "SELECT id, name, born, length(note) FROM goods WHERE id IN (1, 4) ORDER BY id"),
      (Lines{"1 'Drum \xC3\xA4\xE2\x82\xAC' 2000-01-02 00:00:00 5000", "4 'Easel' null null"}));
}

TEST_F(SqliteDriver, DoesNotSaveOverWhatAnotherHasSaved) {
  const auto recordset = Edit(connection_, "SELECT * FROM goods WHERE id = 1");
  recordset->SetUpdateCriteria(platform::UpdateCriteria::kAllColumns);
  FieldOf(*recordset, "name").SetValue("mine");
  connection_->Execute("UPDATE goods SET born = '2001-01-01' WHERE id = 1");
  EXPECT_THROW(recordset->Update(), platform::Error);
  EXPECT_EQ(Rows(connection_, "SELECT name FROM goods WHERE id = 1"), Lines{"'Bell'"});
}

TEST_F(SqliteDriver, TakesParametersAndTellsWhatIsWrong) {
  EXPECT_EQ(RowsOf(MakeCommand(connection_, "SELECT id FROM goods WHERE name = ? AND price < ?",
                               {std::string("Bell"), 1.0})),
            Lines{"1"});
  EXPECT_NE(MessageOf([&] { Rows(connection_, "SELECT nothing FROM goods"); }).find("nothing"),
            std::string::npos);
  EXPECT_EQ(MessageOf([&] {
              const auto command = MakeCommand(connection_, "Anything");
              command->command_type = platform::CommandType::kStoredProcedure;
              RowsOf(command);
            }),
            "The database has no stored procedures; give the command's text and CommandType 1");
}

TEST_F(SqliteDriver, DoesNotTakeAGivenNameForAColumn) {
  const auto recordset = Edit(connection_, "SELECT id, note AS name FROM goods");
  EXPECT_EQ(MessageOf([&] { FieldOf(*recordset, "name").SetValue("z"); }),
            "The field name is computed and cannot be set");
}

}  // namespace

}  // namespace dralo::tests
