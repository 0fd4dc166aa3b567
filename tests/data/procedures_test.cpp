#include "data/commands.h"
#include "data/databases.h"

namespace dralo::tests {

namespace {

class Procedures : public DatabaseContract {
 protected:
  void SetUp() override {
    DatabaseContract::SetUp();
    if (HasProcedures()) connection_->Execute(GetParam().create_procedure);
  }

  static bool HasProcedures() { return !GetParam().create_procedure.empty(); }

  CommandPtr Cheaper(std::vector<platform::Variant> parameters) {
    const auto command = MakeCommand(connection_, "Cheaper", std::move(parameters));
    command->command_type = platform::CommandType::kStoredProcedure;
    return command;
  }
};
INSTANTIATE_TEST_SUITE_P(Databases, Procedures, kDatabases, DatabaseName);

TEST_P(Procedures, YieldRecordsOrAreRefused) {
  const auto command = Cheaper({std::int64_t{50}});
  if (HasProcedures()) {
    EXPECT_EQ(RowsOf(command), (Lines{"'Anvil'", "'Bell'", "'Easel'"}));
  } else {
    EXPECT_THROW(RowsOf(command), platform::Error);
  }
}

TEST_P(Procedures, LeaveTheConnectionReadyForTheNext) {
  for (int i = 0; i < 3 && HasProcedures(); ++i) {
    EXPECT_EQ(RowsOf(Cheaper({platform::Decimal{"12.6"}})), (Lines{"'Anvil'", "'Bell'"}));
    const auto left_early = database::MakeRecordset();
    left_early->Open(*Cheaper({std::int64_t{1000}}));
    EXPECT_FALSE(left_early->Eof());
    left_early->Close();
  }
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

TEST_P(Procedures, AreReadWhileAnotherResultIs) {
  const auto reading = Read(connection_, "SELECT ID FROM Goods ORDER BY ID");
  EXPECT_EQ(Line(*reading), "1");
  if (HasProcedures()) {
    EXPECT_EQ(RowsOf(Cheaper({std::int64_t{10}})), Lines{"'Bell'"});
  }
  EXPECT_EQ(Rest(*reading), (Lines{"1", "2", "3", "4", "5"}));
}

TEST_P(Procedures, ReportAWrongNumberOfParametersAndUnknownNames) {
  EXPECT_THROW(RowsOf(Cheaper({})), platform::Error);
  const auto unknown = Cheaper({std::int64_t{1}});
  unknown->command_text = "NoSuchProcedure";
  EXPECT_THROW(RowsOf(unknown), platform::Error);
  EXPECT_EQ(Rows(connection_, "SELECT COUNT(*) FROM Goods"), Lines{"5"});
}

}  // namespace

}  // namespace dralo::tests
