#include "component/database_properties.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/view_page.h"

namespace dralo::component {
namespace {

using platform::Command;
using platform::Connection;
using platform::Recordset;
using tests::TestEnvironment;

template <class Row>
const Row& Named(std::span<const Row> rows, std::string_view name) {
  for (const Row& row : rows) {
    if (row.name == name) return row;
  }
  throw std::invalid_argument(std::string(name));
}

/// A recordset that stands on the first of two rows.
struct OpenRecordset {
  OpenRecordset() : database("CREATE TABLE T(Name VARCHAR(40)); INSERT INTO T VALUES('Ada'), ('Bo')") {
    connection = platform::Create<Connection>(TestEnvironment(), "ADODB.Connection");
    connection->Open(database.ConnectionString());
    recordset = connection->Execute("SELECT Name FROM T");
  }

  PropertyValue Read(std::string_view name) const {
    return Named(RecordsetProperties(), name).get(*recordset);
  }

  tests::TemporaryDatabase database;
  std::shared_ptr<Connection> connection;
  std::shared_ptr<Recordset> recordset;
};

TEST(DatabaseProperties, ReadARecordsetAsItMoves) {
  const OpenRecordset open;
  EXPECT_EQ(open.Read("EOF"), PropertyValue(false));
  open.recordset->Move(2);
  EXPECT_EQ(open.Read("EOF"), PropertyValue(true));
  EXPECT_EQ(open.Read("State"), PropertyValue(std::int64_t{1}));
  open.recordset->Close();
  EXPECT_EQ(open.Read("State"), PropertyValue(std::int64_t{0}));
}

TEST(DatabaseProperties, DescribeTheColumnThatAFieldStandsFor) {
  const OpenRecordset open;
  FieldReference field(open.recordset, 0);
  EXPECT_EQ(Named(FieldProperties(), "Name").get(field), PropertyValue(std::string("Name")));
  EXPECT_EQ(Named(FieldProperties(), "Type").get(field), PropertyValue(std::int64_t{202}));
  EXPECT_EQ(Named(FieldProperties(), "DefinedSize").get(field), PropertyValue(std::int64_t{40}));
  EXPECT_EQ(Named(FieldProperties(), "ActualSize").get(field), PropertyValue(std::int64_t{3}));
}

TEST(DatabaseProperties, OfAFieldFailOnceItsRecordsetIsClosed) {
  const OpenRecordset open;
  FieldReference field(open.recordset, 0);
  open.recordset->Close();
  for (const auto& row : FieldProperties()) EXPECT_THROW(row.get(field), platform::Error) << row.name;
}

TEST(DatabaseProperties, KeepWhatIsSetOnACommand) {
  const OpenRecordset open;
  Command command;
  Named(CommandProperties(), "ActiveConnection").set(command, platform::ObjectPtr(open.connection));
  Named(CommandProperties(), "CommandText").set(command, std::string("SELECT 1"));
  Named(CommandProperties(), "CommandType").set(command, std::int64_t{2});
  EXPECT_EQ(command.active_connection, open.connection);
  EXPECT_EQ(command.command_text, "SELECT 1");
  EXPECT_EQ(command.command_type, platform::CommandType::kTable);
}

TEST(DatabaseProperties, RefuseAnObjectOfAnotherClass) {
  const OpenRecordset open;
  Command command;
  const auto& property = Named(CommandProperties(), "ActiveConnection");
  EXPECT_THROW(property.set(command, platform::ObjectPtr(open.recordset)), std::invalid_argument);
  EXPECT_EQ(command.active_connection, nullptr);
}

TEST(DatabaseProperties, RefuseNumbersThatStandForNothing) {
  Command command;
  EXPECT_THROW(Named(CommandProperties(), "CommandType").set(command, std::int64_t{3}),
               std::invalid_argument);
  const auto recordset = platform::Create<Recordset>(TestEnvironment(), "ADODB.Recordset");
  EXPECT_THROW(Named(RecordsetProperties(), "CursorLocation").set(*recordset, std::int64_t{1}),
               std::invalid_argument);
  EXPECT_THROW(Named(RecordsetProperties(), "MaxRecords").set(*recordset, std::int64_t{-1}),
               std::invalid_argument);
  EXPECT_EQ(recordset->Location(), platform::CursorLocation::kServer);
  EXPECT_EQ(recordset->MaxRecords(), 0);
}

}  // namespace
}  // namespace dralo::component
