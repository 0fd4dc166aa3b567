#include "state/primary_key_value_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/fake_records.h"
#include "support/named_cases.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

using settings::Settings;

/// The list as links have it, or nothing when the values address no record.
std::string KeyList(Settings& settings, platform::Recordset& records) {
  Rendering view;
  view.settings = settings;
  const std::string text = view.Text([&](html::HtmlWriter& out, state::Render& render) {
    auto list = state::PrimaryKeyValueList::ForLink(render, records);
    if (list.Read(render.Errors())) {
      list.Put(out);
    } else {
      out.Put("(none)");
    }
  });
  settings = view.settings;
  return text;
}

Settings Editable(std::string_view keys) {
  Settings settings;
  settings.EditPrimaryKeys = keys;
  settings.sql = settings.EditSQL = "SELECT * FROM T";
  return settings;
}

constexpr std::string_view kPeopleWithKeys = R"(
    CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Born DATE);
    INSERT INTO T VALUES (5, 'Ann Lee', '2001-02-03'), (NULL, '', NULL))";

struct ListCase {
  std::string_view name, keys, edit_sql;
  bool has_command;
  int moves;
  std::string_view list;
  std::string_view message = "";
};

class KeyListInLinks : public testing::TestWithParam<ListCase> {};

TEST_P(KeyListInLinks, IsThatOfTheRecord) {
  const Records people(kPeopleWithKeys);
  people->Move(GetParam().moves);
  Settings settings = Editable(GetParam().keys);
  settings.EditSQL = GetParam().edit_sql;
  settings.has_stored_procedure = GetParam().has_command;
  EXPECT_EQ(KeyList(settings, *people), GetParam().list);
  EXPECT_EQ(settings.ErrorMessage, GetParam().message);
}

constexpr ListCase kKeyLists[] = {
    {"WithEncodedTextsInTheOrderOfTheKeys", "Name, ID ,born", "SELECT * FROM T", false, 0,
     "Ann+Lee,5,2001%2D02%2D03"},
    {"ButNoneWithoutKeys", "", "SELECT * FROM T", false, 0, "(none)"},
    {"ButNoneForBlankKeys", "  ", "SELECT * FROM T", false, 0, "(none)"},
    {"ButNoneWithoutAnEditStatement", "ID", " ", false, 0, "(none)"},
    {"ButNoneForACommandAsEditStatement", "ID", "SELECT * FROM T", true, 0, "(none)"},
    {"WithAnEditStatementBesideACommand", "ID", "SELECT ID FROM T", true, 0, "5"},
    {"ButNoneWhenItsOnlyValueIsEmpty", "ID", "SELECT * FROM T", false, 1, "(none)"},
    {"WithSeveralEmptyValues", "ID,Name", "SELECT * FROM T", false, 1, ","},
    {"ButNoneForAKeyThatIsNoField", "ID,Town", "SELECT * FROM T", false, 0, "(none)",
     "The record has no field named \"Town\", when trying to construct a Primary Key URL link<br>"},
};

INSTANTIATE_TEST_SUITE_P(People, KeyListInLinks, testing::ValuesIn(kKeyLists), kByName);

TEST(PrimaryKeyValueList, OfAFormNeedsNoEditStatement) {
  const Records people(kPeopleWithKeys);
  Settings settings = Editable("ID");
  settings.EditSQL.clear();
  state::PrimaryKeyValueList list(settings, *people);
  EXPECT_TRUE(list.Read(settings::ErrorReport(settings.ErrorMessage)));
  EXPECT_EQ(list.Plain(), "5");
}

TEST(PrimaryKeyValueList, ReportsAValueThatCannotBeRead) {
  FakeRecords records(1);
  records.Add("ID", platform::TypeCode::kInteger, Unreadable);
  Settings settings = Editable("ID");
  EXPECT_EQ(KeyList(settings, records), "(none)");
  EXPECT_EQ(settings.ErrorMessage, "Disk gone, when trying to construct a Primary Key URL link<br>");
}

/// The key of the one record `row` of a table T(A, B), as it stands in a script and by itself.
std::pair<std::string, std::string> ScriptAndPlain(std::string_view row) {
  const Records records("CREATE TABLE T (A TEXT, B INTEGER); INSERT INTO T VALUES " + std::string(row));
  Settings settings = Editable("A,B");
  state::PrimaryKeyValueList list(settings, *records);
  EXPECT_TRUE(list.Read(settings::ErrorReport(settings.ErrorMessage)));
  html::HtmlWriter out;
  list.PutInScript(out);
  return {out.Take(), list.Plain()};
}

TEST(PrimaryKeyValueList, MasksInScriptsWhatWouldEndTheTextOrTheAttributeAndNothingElse) {
  EXPECT_THAT(ScriptAndPlain("('Ann Lee, Zoë & Co/100%', 5)"),
              testing::Pair("Ann Lee, Zoë & Co/100%,5", "Ann Lee, Zoë & Co/100%,5"));
  EXPECT_THAT(ScriptAndPlain("('O''Neil', 5)"), testing::Pair(R"(O\'Neil,5)", "O'Neil,5"));
  EXPECT_THAT(ScriptAndPlain(R"(('a\b\', 5))"), testing::Pair(R"(a\\b\\,5)", R"(a\b\,5)"));
  EXPECT_THAT(ScriptAndPlain(R"(('say "x"', 5))"), testing::Pair("say &quot;x&quot;,5", R"(say "x",5)"));
  EXPECT_THAT(ScriptAndPlain("('a&lt;b & c', 5)"), testing::Pair("a&amp;lt;b & c,5", "a&lt;b & c,5"));
  EXPECT_THAT(ScriptAndPlain("('a' || char(13, 10) || 'b', 5)"), testing::Pair(R"(a\r\nb,5)", "a\r\nb,5"));
}

TEST(PrimaryKeyValueList, ForgetsTheLastRecordWhenTheNextCannotBeRead) {
  FakeRecords records(1);
  bool is_readable = true;
  records.Add("ID", platform::TypeCode::kInteger, [&]() -> platform::VariantView {
    if (!is_readable) throw platform::Error("Disk gone");
    return std::int64_t{5};
  });
  Settings settings = Editable("ID");
  state::PrimaryKeyValueList list(settings, records);
  EXPECT_TRUE(list.Read(settings::ErrorReport(settings.ErrorMessage)));
  EXPECT_EQ(list.Plain(), "5");
  is_readable = false;
  EXPECT_FALSE(list.Read(settings::ErrorReport(settings.ErrorMessage)));
  EXPECT_EQ(list.Plain(), "");
}

}  // namespace
}  // namespace dralo::tests
