#include "editing/posted_key.h"

#include <gtest/gtest.h>

#include <optional>

#include "support/named_cases.h"
#include "unit/editing/edited_view.h"
#include "unit/editing/saving.h"

/// Which record a posted form saves or deletes.
namespace dralo::tests {
namespace {

constexpr std::string_view kMoments =
    "CREATE TABLE T(At DATETIME PRIMARY KEY, V TEXT);"
    "INSERT INTO T VALUES('2024-05-03 10:20:30', 'full'), ('2024-05-03 10:20:30.250', 'quarter'),"
    "  ('2024-05-04 00:00:00', 'midnight'), ('2024-05-05T06:07:08Z', 'zulu')";

/// A page whose form was opened by a key.
struct Opened : Saving {
  Opened(const TemporaryDatabase& database, std::string_view keys, std::string_view key) : Saving(database) {
    settings.EditPrimaryKeys = keys;
    settings.DeleteSQL = "DELETE FROM T";
    page.form.push_back({"Morvu1PK", std::string(key)});
  }
};

std::string Values(const TemporaryDatabase& database) {
  return database.Value("SELECT group_concat(V) FROM (SELECT V FROM T ORDER BY rowid)");
}

TEST(PostedKey, DeletesTheRecordThatOpenedTheForm) {
  const TemporaryDatabase database(kMoments);
  Opened form(database, "At", "2024-05-03 10:20:30.25");
  form.Post("At", "5/3/2024 10:20:30 AM");
  EXPECT_TRUE(form.Delete()) << form.Message();
  EXPECT_EQ(Values(database), "full,midnight,zulu");
}

struct SavedMoment {
  std::string_view name, opened;
  std::optional<std::string_view> typed;
  std::string_view values, saved;
};

class PostedMoment : public testing::TestWithParam<SavedMoment> {};

TEST_P(PostedMoment, SavesTheRecord) {
  const TemporaryDatabase database(kMoments);
  Opened form(database, "At", GetParam().opened);
  if (GetParam().typed) form.Post("At", *GetParam().typed);
  form.Post("V", "new");
  EXPECT_TRUE(form.Save()) << form.Message();
  EXPECT_EQ(Values(database), GetParam().values);
  EXPECT_EQ(database.Value("SELECT At FROM T WHERE V='new'"), GetParam().saved);
}

constexpr SavedMoment kSavedMoments[] = {
    {"ThatOpenedTheFormWhileItsInputShowsThat", "2024-05-03 10:20:30.25", "5/3/2024 10:20:30 AM",
     "full,new,midnight,zulu", "2024-05-03 10:20:30.250"},
    {"ThatWasTypedWhenTheInputShowsAnother", "2024-05-03 10:20:30.25", "5/4/2024", "full,quarter,new,zulu",
     "2024-05-04 00:00:00"},
    {"WhoseMomentIsSpelledInAnotherWay", "2024-05-05 06:07:08", "5/5/2024 6:07:08 AM",
     "full,quarter,midnight,new", "2024-05-05T06:07:08Z"},
    {"ThatOpenedAFormWithoutKeyInputs", "2024-05-04", std::nullopt, "full,quarter,new,zulu",
     "2024-05-04 00:00:00"},
};

INSTANTIATE_TEST_SUITE_P(Moments, PostedMoment, testing::ValuesIn(kSavedMoments), kByName);

TEST(PostedKey, IsNoOtherRecordThatTheDatabaseFinds) {
  const TemporaryDatabase database(
      "CREATE TABLE T(K VARCHAR(9) COLLATE NOCASE, V TEXT); INSERT INTO T VALUES('a', 'one')");
  Opened form(database, "K", "A");
  form.Post({{"K", "A"}, {"V", "new"}});
  EXPECT_FALSE(form.Save());
  EXPECT_EQ(form.Message(), "There is no record with the posted key in UpdateRecord.<br>");
  EXPECT_EQ(Values(database), "one");
}

TEST(PostedKey, OfABooleanIsTakenFromItsBox) {
  for (const auto& [key, box, changed] : {std::tuple{"1", "on", "no,new"},
                                          {"0", nullptr, "new,yes"},
                                          {"1", nullptr, "new,yes"},
                                          {"0", "on", "no,new"},
                                          {"0", "False", "new,yes"},
                                          {"1", "True", "no,new"}}) {
    const TemporaryDatabase database(
        "CREATE TABLE T(K BOOLEAN, V TEXT); INSERT INTO T VALUES(0,'no'),(1,'yes')");
    Opened form(database, "K", key);
    if (box != nullptr) form.Post("K", box);
    form.Post("V", "new").settings.EditFieldsReadOnly = "K";
    EXPECT_TRUE(form.Save()) << form.Message();
    EXPECT_EQ(Values(database), changed) << key << (box != nullptr ? box : "");
  }
}

TEST(PostedKey, ThatIsHiddenIsNotWritten) {
  const TemporaryDatabase database(
      "CREATE TABLE T(K BOOLEAN, V TEXT); INSERT INTO T VALUES(0,'no'),(1,'yes')");
  Opened form(database, "K", "0");
  form.Post({{"K", "False"}, {"V", "new"}}).settings.FormFieldsHide = "K";
  EXPECT_TRUE(form.Save()) << form.Message();
  EXPECT_EQ(database.Value("SELECT group_concat(K||V) FROM T"), "0new,1yes");
}

TEST(PostedKey, WithANullAmongItsPartsIsFound) {
  const TemporaryDatabase database(
      "CREATE TABLE T(A INT, B INT, C TEXT, V TEXT, UNIQUE(A, B, C));"
      "INSERT INTO T VALUES(1, NULL, 'c', 'one'), (1, 2, NULL, 'two'), (1, 2, '', 'three')");
  Opened form(database, "A,B,C", "1,,c");
  form.Post({{"A", "1"}, {"B", ""}, {"C", "c"}, {"V", "new"}});
  EXPECT_TRUE(form.Save()) << form.Message();
  EXPECT_EQ(Values(database), "new,two,three");
}

TEST(PostedKey, ThatIsEmptyIsNoGuessBetweenAnEmptyTextAndNull) {
  const TemporaryDatabase database(
      "CREATE TABLE T(K VARCHAR(9) UNIQUE, V TEXT); INSERT INTO T VALUES(NULL, 'null'), ('', 'empty')");
  const auto page = [&] {
    Opened form(database, "K", "");
    form.Post({{"K", ""}, {"V", "new"}});
    return form;
  };
  Opened save = page();
  EXPECT_FALSE(save.Save());
  EXPECT_EQ(save.Message(),
            "The posted key is empty, and so are those of several records in UpdateRecord.<br>");
  Opened deletion = page();
  EXPECT_FALSE(deletion.Delete());
  EXPECT_EQ(deletion.Message(), save.Message());
  EXPECT_EQ(Values(database), "null,empty");

  database.Run("DELETE FROM T WHERE K IS NULL");
  Opened only = page();
  EXPECT_TRUE(only.Save()) << only.Message();
  EXPECT_EQ(Values(database), "new");
}

TEST(PostedKey, ThatIsAnEmptyBoxIsNoGuessBetweenFalseAndNull) {
  const TemporaryDatabase database(
      "CREATE TABLE T(K BOOLEAN UNIQUE, V TEXT); INSERT INTO T VALUES(NULL, 'null'), (0, 'false')");
  Opened form(database, "K", "");
  form.Post("V", "new");
  EXPECT_FALSE(form.Save());
  EXPECT_EQ(form.Message(),
            "The posted key is empty, and so are those of several records in UpdateRecord.<br>");
  EXPECT_EQ(Values(database), "null,false");
}

TEST(PostedKey, ThatIsNoColumnOfTheFormStillCounts) {
  const TemporaryDatabase database(
      "CREATE TABLE T(ID INTEGER PRIMARY KEY, V TEXT); INSERT INTO T "
      "VALUES(1,'same'),(2,'same'),(3,'other')");
  Opened form(database, "ID", "2");
  form.settings.EditSQL = "SELECT V FROM T";
  form.Post("V", "new");
  EXPECT_TRUE(form.Save()) << form.Message();
  EXPECT_EQ(Values(database), "same,new,other");
}

TEST(PostedKey, OfATableWithoutOneTellsRecordsApartWithTheirOldValues) {
  const TemporaryDatabase database(
      "CREATE TABLE T(K INT, V TEXT, W TEXT); INSERT INTO T "
      "VALUES(1,'a','x'),(1,'b','x'),(2,'c','x'),(2,'c','x')");
  Opened first(database, "K", "1");
  first.Post({{"K", "1"}, {"V", "new"}, {"W", "x"}});
  EXPECT_TRUE(first.Save()) << first.Message();
  EXPECT_EQ(Values(database), "new,b,c,c");

  Opened equal(database, "K", "2");
  equal.Post({{"K", "2"}, {"V", "never"}, {"W", "x"}});
  EXPECT_FALSE(equal.Save());
  EXPECT_EQ(
      equal.Message(),
      "Update failed: Several records are equal in all fields of the query, so none was changed. Add a field "
      "that tells them apart.<br>");
  EXPECT_EQ(Values(database), "new,b,c,c");
}

TEST(PostedKey, OfSeveralRecordsSavesNoneWhenTheFormWasNotOpenedByIt) {
  const TemporaryDatabase database(
      "CREATE TABLE T(K INT, V TEXT); INSERT INTO T VALUES(1,'a'),(1,'b'),(2,'c')");
  const auto save = [&](std::string_view typed) {
    Saving form(database);
    form.settings.EditPrimaryKeys = "K";
    form.Post({{"K", std::string(typed)}, {"V", "new"}});
    return form.Save() ? "" : form.Message();
  };
  EXPECT_EQ(save("1"), "Several records have the posted key, so none was saved in UpdateRecord.<br>");
  EXPECT_EQ(Values(database), "a,b,c");
  EXPECT_EQ(save("2"), "");
  EXPECT_EQ(Values(database), "a,b,new");
}

TEST(PostedKey, OfATableWithoutOneIsInsertedToo) {
  const TemporaryDatabase database("CREATE TABLE T(K INT, V TEXT)");
  Saving form(database);
  form.settings.EditPrimaryKeys = "K";
  form.Post({{"K", "1"}, {"V", "new"}});
  EXPECT_TRUE(form.Insert()) << form.Message();
  EXPECT_EQ(Values(database), "new");
}

/// Records that note with which limit each recordset was opened.
class LimitedRecords final : public FakeRecords {
 public:
  LimitedRecords(int rows, std::vector<std::int64_t>& limits) : FakeRecords(rows), limits_(limits) {}
  void SetMaxRecords(std::int64_t rows) override { limit_ = rows; }
  void Open(std::string_view, const std::shared_ptr<platform::Connection>&, platform::CursorType,
            platform::LockType, int /*options*/) override {
    limits_.push_back(limit_);
  }

 private:
  std::vector<std::int64_t>& limits_;
  std::int64_t limit_ = 0;
};

class LimitedEnvironment final : public platform::Environment {
 public:
  std::vector<std::int64_t> limits;

  platform::ObjectPtr CreateObject(std::string_view /*identifier*/) override {
    auto records = std::make_shared<LimitedRecords>(3, limits);
    records->Add("ID", platform::TypeCode::kInteger, [] { return platform::VariantView(std::int64_t{5}); });
    return records;
  }
  const platform::ValueFormatting& Regional() const override { return AmericanEnvironment().Regional(); }
  std::unique_ptr<platform::RegExp> CreateRegExp() override { return AmericanEnvironment().CreateRegExp(); }
};

TEST(PostedKey, ReadsTwoRecordsHoweverManyItFinds) {
  LimitedEnvironment environment;
  EditedView view("", environment);
  view.Settings().EditPrimaryKeys = "ID";
  view.Settings().EditSQL = "SELECT ID FROM T";
  view.Settings().EditFieldsReadOnly = "*";
  settings::SetEditOptions(view.Settings(), "UPDATE");
  view.Post("FormUpdate", "Save");
  view.Post("_Form_ID", "5 OR 1=1");
  EXPECT_FALSE(view.Rendered([](state::Render& render) { return editing::UpdateRecord(render); }));
  EXPECT_EQ(environment.limits, (std::vector<std::int64_t>{1, 1, 2}))
      << "the fields, the record, then whether there is another one";
}

TEST(UntypedField, HasTheTypeOfTheRecordThatIsSaved) {
  const TemporaryDatabase database(
      "CREATE TABLE T(ID INTEGER PRIMARY KEY, V); INSERT INTO T VALUES(1,'text'),(2,5),(3,2.5)");
  for (const auto& [key, stored] : {std::pair{"1", "'7'"}, {"2", "7"}, {"3", "7"}}) {
    Saving form(database);
    form.Post({{"ID", key}, {"V", "7"}});
    EXPECT_TRUE(form.Save()) << form.Message();
    EXPECT_EQ(database.Value("SELECT quote(V) FROM T WHERE ID=" + std::string(key)), stored);
  }
}

}  // namespace
}  // namespace dralo::tests
