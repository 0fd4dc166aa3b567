#include "views/primary_key_value_list.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fake_records.h"
#include "support/records.h"

namespace dralo::tests {
namespace {

using shell::Settings;

/// The written list, or nothing when the values address no record.
std::string KeyList(Settings& settings, platform::Recordset& records) {
  views::PrimaryKeyValueList list(settings, records);
  if (!list.Read(settings, AmericanEnvironment().Regional())) return "(none)";
  util::HtmlWriter out;
  list.Put(out);
  return out.Take();
}

Settings Editable(std::string_view keys) {
  Settings settings;
  settings.EditPrimaryKeys = keys;
  settings.sql = settings.EditSQL = "SELECT * FROM T";
  return settings;
}

constexpr std::string_view kPeople = R"(
    CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Born DATE);
    INSERT INTO T VALUES (5, 'Ann Lee', '2001-02-03'), (NULL, '', NULL))";

TEST(PrimaryKeyValueList, HoldsTheEncodedTextsInTheOrderOfTheKeys) {
  const Records people(kPeople);
  Settings settings = Editable("Name, ID ,born");
  EXPECT_EQ(KeyList(settings, *people), "Ann+Lee,5,2%2F3%2F2001");
}

TEST(PrimaryKeyValueList, IsEmptyWithoutKeys) {
  const Records people(kPeople);
  for (const std::string_view keys : {"", "  "}) {
    Settings settings = Editable(keys);
    EXPECT_EQ(KeyList(settings, *people), "(none)");
    EXPECT_EQ(settings.ErrorMessage, "");
  }
}

TEST(PrimaryKeyValueList, IsEmptyWithoutAnEditStatement) {
  const Records people(kPeople);
  Settings settings = Editable("ID");
  settings.EditSQL = " ";
  EXPECT_EQ(KeyList(settings, *people), "(none)");
}

TEST(PrimaryKeyValueList, TakesNoCommandForAnEditStatement) {
  const Records people(kPeople);
  Settings settings = Editable("ID");
  settings.has_stored_procedure = true;
  EXPECT_EQ(KeyList(settings, *people), "(none)");

  settings.EditSQL = "SELECT ID FROM T";
  EXPECT_EQ(KeyList(settings, *people), "5");
}

TEST(PrimaryKeyValueList, IsEmptyWhenItsOnlyValueIs) {
  const Records people(kPeople);
  people->MoveNext();
  Settings id = Editable("ID");
  EXPECT_EQ(KeyList(id, *people), "(none)");
  Settings both = Editable("ID,Name");
  EXPECT_EQ(KeyList(both, *people), ",");
}

TEST(PrimaryKeyValueList, ReportsAKeyThatIsNoField) {
  const Records people(kPeople);
  Settings settings = Editable("ID,Town");
  EXPECT_EQ(KeyList(settings, *people), "(none)");
  EXPECT_EQ(settings.ErrorMessage,
            "The record has no field named \"Town\", when trying to construct a Primary Key URL link<br>");
}

TEST(PrimaryKeyValueList, ReportsAValueThatCannotBeRead) {
  FakeRecords records(1);
  records.Add("ID", platform::TypeCode::kInteger, Unreadable);
  Settings settings = Editable("ID");
  EXPECT_EQ(KeyList(settings, records), "(none)");
  EXPECT_EQ(settings.ErrorMessage, "Disk gone, when trying to construct a Primary Key URL link<br>");
}

}  // namespace
}  // namespace dralo::tests
