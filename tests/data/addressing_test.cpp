#include <optional>

#include "data/database_contract.h"
#include "data/databases.h"
#include "data/key_journey.h"
#include "data/key_types.h"

/// The record that a form shows is the one that is saved or deleted, whatever the type of its key.
namespace dralo::tests {

namespace {

class Addressing : public ::testing::TestWithParam<Database> {
 protected:
  void SetUp() override {
    database_ = GetParam().make();
    connection_ = Connect(database_->ConnectionString());
  }

  /// A table of the keys with the notes n1, n2, ... Returns its name.
  std::string Make(const KeyType& type, bool is_declared) {
    std::string table = "Keys" + std::to_string(++tables_);
    std::string statement = "CREATE TABLE " + table + " (K ";
    statement.append(type.name).append(is_declared ? " PRIMARY KEY" : "").append(", Note VARCHAR(20))");
    connection_->Execute(statement);
    int number = 0;
    for (const std::string& key : type.keys) {
      statement = "INSERT INTO " + table;
      statement.append(" VALUES (").append(key).append(", 'n").append(Padded(++number)).append("')");
      connection_->Execute(statement);
    }
    return table;
  }

  /// Numbers sort as texts.
  static std::string Padded(int number) { return std::to_string(10 + number); }

  Lines Notes(const std::string& table) {
    return Rows(connection_, "SELECT Note FROM " + table + " ORDER BY Note");
  }

  /// The notes of a table as Make() fills it, with another one in place of the number's, or none.
  static Lines Expected(const KeyType& type, int number, const std::optional<std::string>& note) {
    Lines notes;
    for (int i = 1; static_cast<std::size_t>(i) <= type.keys.size(); ++i) {
      if (i != number) notes.push_back("'n" + Padded(i) + "'");
    }
    if (note) notes.push_back("'" + *note + "'");
    std::sort(notes.begin(), notes.end());
    return notes;
  }

  void Visit(const KeyType& type, const std::string& table, int number, const KeyJourney::Fields& link,
             KeyJourney& visitor) {
    SCOPED_TRACE(type.name + " " + type.keys[static_cast<std::size_t>(number - 1)]);
    const std::string note = "n" + Padded(number);
    const std::string viewed = visitor.Show(link);
    EXPECT_EQ(visitor.Error(), "");
    EXPECT_NE(viewed.find("<td>" + note + "</td>"), viewed.npos) << "opened by its link";

    const auto form = visitor.Posted(link, "Morvu1FormUpdate", "zz");
    const std::string saved = visitor.Show({}, form);
    EXPECT_EQ(visitor.Error(), "");
    EXPECT_NE(saved.find("[Record saved ok]"), saved.npos);
    EXPECT_EQ(Notes(table), Expected(type, number, "zz"));
    connection_->Execute("UPDATE " + table + " SET Note = '" + note + "' WHERE Note = 'zz'");
  }

  void Delete(const KeyType& type, const std::string& table, int number, const KeyJourney::Fields& link,
              KeyJourney& visitor) {
    SCOPED_TRACE("delete " + type.name + " " + type.keys[static_cast<std::size_t>(number - 1)]);
    const std::string deleted = visitor.Show({}, visitor.Posted(link, "Morvu1FormDelete", "zz"));
    EXPECT_EQ(visitor.Error(), "");
    EXPECT_NE(deleted.find("[Record deleted]"), deleted.npos);
    const auto left = type.keys.size() - static_cast<std::size_t>(number);
    EXPECT_EQ(Notes(table).size(), left);
    if (left > 0) {
      EXPECT_EQ(Notes(table).front(), "'n" + Padded(number + 1) + "'");
    }
  }

  /// With the key in that list of fields.
  void VisitAll(const KeyType& type, const std::string& table, const std::string& list,
                bool is_hardened = false) {
    SCOPED_TRACE(list);
    KeyJourney visitor(database_->ConnectionString(), table);
    visitor.is_hardened = is_hardened;
    if (!list.empty()) visitor.settings = {{list, "K,k"}};
    const auto links = visitor.Links();
    ASSERT_EQ(links.size(), type.keys.size());
    for (std::size_t i = 0; i < links.size(); ++i)
      Visit(type, table, static_cast<int>(i + 1), links[i], visitor);
  }

  void DeleteAll(const KeyType& type, const std::string& table, bool is_hardened = false) {
    KeyJourney visitor(database_->ConnectionString(), table);
    visitor.is_hardened = is_hardened;
    const auto links = visitor.Links();
    ASSERT_EQ(links.size(), type.keys.size());
    for (std::size_t i = 0; i < links.size(); ++i)
      Delete(type, table, static_cast<int>(i + 1), links[i], visitor);
  }

  std::unique_ptr<NewDatabase> database_;
  ConnectionPtr connection_;
  int tables_ = 0;
};

INSTANTIATE_TEST_SUITE_P(Databases, Addressing, kDatabases, DatabaseName);

TEST_P(Addressing, FindsEveryRecordByItsKeyAgain) {
  for (const KeyType& type : KeyTypesOf(GetParam().name)) {
    const std::string table = Make(type, type.can_be_declared);
    EXPECT_EQ(Read(connection_, "SELECT K FROM " + table)->Fields()[0]->Type(), type.code) << type.name;
    VisitAll(type, table, "");
    VisitAll(type, table, "EditFieldsReadOnly");
    DeleteAll(type, table);
  }
}

TEST_P(Addressing, FindsEveryRecordWithoutADeclaredKeyAgain) {
  for (const KeyType& type : KeyTypesOf(GetParam().name)) {
    const std::string table = Make(type, false);
    VisitAll(type, table, "FormFieldsHide");
    DeleteAll(type, table);
  }
}

TEST_P(Addressing, FindsEveryRecordOfAHardenedPage) {
  for (const KeyType& type : KeyTypesOf(GetParam().name)) {
    const std::string table = Make(type, type.can_be_declared);
    VisitAll(type, table, "", true);
    DeleteAll(type, table, true);
  }
}

TEST_P(Addressing, FindsEveryRecordOfAHardenedPageWithoutADeclaredKey) {
  for (const KeyType& type : KeyTypesOf(GetParam().name)) {
    const std::string table = Make(type, false);
    VisitAll(type, table, "FormFieldsHide", true);
    DeleteAll(type, table, true);
  }
}

/// By default blanks do not count and an empty text is no key.
TEST_P(Addressing, TakesTextsOfAHardenedPageAsTheyAre) {
  const KeyType texts{GetParam().text.name, GetParam().text.code, {"' a'", "''", "'%2C'", "'A'"}};
  const std::string table = Make(texts, true);
  VisitAll(texts, table, "", true);
  DeleteAll(texts, table, true);
}

TEST_P(Addressing, SaysThatBytesAddressNoRecord) {
  const KeyType bytes{GetParam().bytes.name, GetParam().bytes.code, {"NULL"}};
  const std::string table = Make(bytes, false);
  KeyJourney visitor(database_->ConnectionString(), table);
  const FakePage::Fields form = {
      {"Morvu1FormDisplay", "formOneRec"}, {"Morvu1FormDelete", "Delete"}, {"Morvu1_Form_K", "x"}};
  visitor.Show({}, form);
  EXPECT_EQ(visitor.Error(),
            "The key \"K\" holds binary data, by which no record can be found in UpdateRecord.<br>");
  EXPECT_EQ(Notes(table), Lines{"'n11'"});
}

TEST_P(Addressing, ReportsADeleteThatFindsNoRecord) {
  const KeyType numbers{GetParam().small.name, GetParam().small.code, {"5", "6"}};
  const std::string table = Make(numbers, true);
  KeyJourney visitor(database_->ConnectionString(), table);
  const auto form = visitor.Posted(visitor.Links().at(0), "Morvu1FormDelete", "zz");
  connection_->Execute("DELETE FROM " + table + " WHERE K = 5");
  const std::string page = visitor.Show({}, form);
  EXPECT_EQ(visitor.Error(), "There is no record with the posted key in UpdateRecord.<br>");
  EXPECT_NE(page.find("[Record deleted]"), page.npos) << "it is not there any more";
  EXPECT_NE(page.find("value=\"n12\""), page.npos) << "the record that stands there now";
}

TEST_P(Addressing, DeletesNothingWhenSeveralRecordsHaveTheKey) {
  const KeyType numbers{GetParam().small.name, GetParam().small.code, {"5", "5", "6"}};
  const std::string table = Make(numbers, false);
  KeyJourney visitor(database_->ConnectionString(), table);
  visitor.Show({}, visitor.Posted(visitor.Links().at(0), "Morvu1FormDelete", "zz"));
  EXPECT_EQ(visitor.Error(), "Several records have the posted key, so none was deleted in UpdateRecord.<br>");
  EXPECT_EQ(Notes(table).size(), 3U);

  visitor.Show(
      {},
      {{"Morvu1FormDisplay", "formOneRec"}, {"Morvu1FormDelete", "Delete"}, {"Morvu1_Form_K", "5 OR 1=1"}});
  EXPECT_NE(visitor.Error(), "");
  EXPECT_EQ(Notes(table).size(), 3U);
}

/// MariaDB's driver counts records that were changed, not those that were found.
TEST_P(Addressing, CountsARecordThatWasDeletedBeforeAsFound) {
  const KeyType numbers{GetParam().small.name, GetParam().small.code, {"5", "6"}};
  const std::string table = Make(numbers, true);
  KeyJourney visitor(database_->ConnectionString(), table);
  visitor.settings = {{"DeleteSQL", "UPDATE " + table + " SET Note = 'n11'"}};
  const std::string page = visitor.Show({}, visitor.Posted(visitor.Links().at(0), "Morvu1FormDelete", "zz"));
  const bool counts_found = GetParam().name != "MariaDbOdbc";
  EXPECT_EQ(visitor.Error(),
            counts_found ? "" : "There is no record with the posted key in UpdateRecord.<br>");
  EXPECT_NE(page.find("[Record deleted]"), page.npos);
}

}  // namespace

}  // namespace dralo::tests
