#include "data/column_types.h"

#include <algorithm>
#include <utility>

#include "component/db_view.h"
#include "data/databases.h"
#include "support/browser_form.h"
#include "support/fake_page.h"
#include "support/regional_environment.h"

namespace dralo::tests {

namespace {

using Inputs = std::vector<platform::RequestField>;

/// The types of PostgreSQL that have to be made before they can be used.
const Lines kOwnTypes = {
    "CREATE TYPE mood AS ENUM ('happy', 'so so')",
    "CREATE DOMAIN positive AS integer CHECK (VALUE > 0)",
    "CREATE DOMAIN short_text AS varchar(10)",
    "CREATE DOMAIN padded_text AS char(5)",
    "CREATE DOMAIN exact AS numeric(10,2)",
    "CREATE TYPE pair AS (a integer, b text)",
    "CREATE COLLATION blind (provider = icu, locale = 'und-u-ks-level2', deterministic = false)"};

/// The page of the edit form of the one record of a table.
class EditedRecord {
 public:
  EditedRecord(const std::string& connection_string, const std::string& table)
      : view_(AmericanEnvironment()) {
    view_.OnStartPage(page_);
    view_.Set("ConnectionString", connection_string);
    view_.Set("sql", "SELECT * FROM " + table);
    view_.Set("EditOptions", std::string("UPDATE"));
    view_.Set("EditPrimaryKeys", std::string("ID"));
  }

  /// What a browser posts for it.
  Inputs Open() {
    return PostedByBrowser(
        Render({{"Morvu1FormDisplay", "formOneRec"}, {"Morvu1PK", "1"}, {"Morvu1FormEdit", "Edit"}}),
        "Morvu1FormUpdate");
  }

  /// The outcome of the save and the messages.
  std::string Save(Inputs inputs) {
    Render(std::move(inputs));
    return view_.LatestOutcome().status_message + Messages();
  }

  const std::string& Messages() const { return view_.GetSettings().ErrorMessage; }

 private:
  std::string Render(Inputs inputs) {
    page_.form = std::move(inputs);
    page_.body.clear();
    view_.WriteHtmlTable();
    return page_.body;
  }

  FakePage page_;
  component::DbView view_;
};

/// The input of the field; nullptr when the form has none.
template <class SomeInputs>
auto InputOf(SomeInputs&& inputs, std::string_view field) -> decltype(&inputs.front().value) {
  const std::string name = "Morvu1_Form_" + std::string(field);
  const auto found =
      std::ranges::find_if(inputs, [&](const auto& input) { return text::EqualAscii(input.name, name); });
  return found == inputs.end() ? nullptr : &found->value;
}

constexpr const char* kSaved = "&nbsp;[Record saved ok]";

class ColumnTypes : public DatabaseContract {
 protected:
  void SetUp() override {
    DatabaseContract::SetUp();
    if (!IsPostgreSql()) return;
    for (const std::string& statement : kOwnTypes) connection_->Execute(statement);
  }

  /// Calls `test` for every type, with a table of one record of it.
  template <class Test>
  void ForEachType(Test&& test) {
    for (const ColumnType& type : ColumnTypesOf(GetParam().name)) {
      SCOPED_TRACE(type.type + " " + type.literal);
      table_ = "Typed" + std::to_string(++tables_);
      try {
        if (Create(type)) test(type);
      } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
      }
    }
  }

  static bool IsPostgreSql() { return GetParam().name.starts_with("PostgreSql"); }

  EditedRecord NewPage() const { return {ConnectionString(), table_}; }

  /// The record as the database itself writes it.
  std::string Stored() {
    const std::string& name = GetParam().name;
    const std::string kept = IsPostgreSql()                ? "concat(Kept)"
                             : name.starts_with("MariaDb") ? "HEX(CONCAT(Kept, ''))"
                                                           : "typeof(Kept) || ' ' || quote(Kept)";
    return Rows(connection_, "SELECT Note, " + kept + " FROM " + table_).at(0);
  }

  void Clear() { connection_->Execute("UPDATE " + table_ + " SET Kept = NULL"); }

 private:
  /// False when this version of the database does not have the type.
  bool Create(const ColumnType& type) {
    try {
      connection_->Execute("CREATE TABLE " + table_ +
                           " (ID INTEGER NOT NULL PRIMARY KEY, Note VARCHAR(20), Kept " + type.type + ")");
    } catch (const platform::Error&) {
      if (!type.is_optional) throw;
      return false;
    }
    const bool is_strict = GetParam().name.starts_with("MariaDb");
    connection_->Execute(std::string(is_strict ? "SET STATEMENT sql_mode = 'ALLOW_INVALID_DATES' FOR " : "") +
                         "INSERT INTO " + table_ + " (ID, Note, Kept) VALUES (1, 'old', " + type.literal +
                         ")");
    return true;
  }

  int tables_ = 0;
  std::string table_;
};
INSTANTIATE_TEST_SUITE_P(Databases, ColumnTypes, kDatabases, DatabaseName);

TEST_P(ColumnTypes, StayAsTheyAreWhenAnotherColumnIsSaved) {
  ForEachType([&](const ColumnType&) {
    std::string expected = Stored();
    expected.replace(expected.find("old"), 3, "new");

    EditedRecord page = NewPage();
    Inputs inputs = page.Open();
    EXPECT_EQ(page.Messages(), "");
    ASSERT_NE(InputOf(inputs, "Note"), nullptr);
    *InputOf(inputs, "Note") = "new";

    EXPECT_EQ(NewPage().Save(inputs), kSaved);
    EXPECT_EQ(Stored(), expected);
  });
}

TEST_P(ColumnTypes, AreSavedAsTheFormShowsThemOrRefused) {
  ForEachType([&](const ColumnType& type) {
    const Inputs shown = NewPage().Open();
    const std::string* text = InputOf(shown, "Kept");
    if (!text || text->empty() || type.type.ends_with("NOT NULL")) return;
    Clear();
    const std::string cleared = Stored();

    const std::string outcome = NewPage().Save(shown);

    if (type.refusal.empty()) {
      EXPECT_EQ(outcome, kSaved) << *text;
      const Inputs shown_again = NewPage().Open();
      EXPECT_EQ(*InputOf(shown_again, "Kept"), *text);
    } else {
      EXPECT_NE(outcome.find(type.refusal), std::string::npos) << outcome;
      EXPECT_EQ(Stored(), cleared);
    }
  });
}

}  // namespace

}  // namespace dralo::tests
