#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "support/browser_form.h"
#include "support/view_page.h"

/// A visitor opens the edit form of a record and saves it.
namespace dralo::tests {
namespace {

/// Every kind of column, with values that a page has to carry with care.
constexpr std::string_view kRecords = R"(
    CREATE TABLE T(ID INTEGER PRIMARY KEY, Big BIGINT, Tiny TINYINT, Small SMALLINT, Number DOUBLE,
      Price DECIMAL(12,4), Cost MONEY, Active BOOLEAN, Day DATE, Moment DATETIME, Clock TIME,
      Name VARCHAR(40) NOT NULL, Code CHAR(8), Notes TEXT, Picture BLOB, Mark UUID);
    INSERT INTO T VALUES(1, 9223372036854775807, -128, -32768, 0.1, '3.5000', '1234567.8900', 1, '2024-05-03',
      '2024-05-03 14:05:09.250', '14:05:09', 'O''Neil & "Sons" &amp; &copy', ' x ', char(10) || 'a', x'00FF', 'abc');
    INSERT INTO T VALUES(2, -9223372036854775808, NULL, NULL, 1e300, '0.10', '-0.0', 0, '1899-12-30',
      '2024-05-03 00:00:00', '00:00:00', char(10, 9, 13) || '<b>"', '        ', char(13, 10, 13, 10) || 'b' ||
      char(9, 10, 10, 13) || '</textarea><script>alert(1)</script>', NULL, '');
    INSERT INTO T VALUES(3, 0, 0, 0, -0.0, '00012.30', '.5', 0, 'no date', 1714745109, 'no time',
      char(128512) || ' &#65; &#x41 &notit; &not', char(65533), '&lt;/textarea&gt;&quot;&amp;amp; ?a=1&copy=2', x'', NULL);
    INSERT INTO T VALUES(4, NULL, NULL, NULL, NULL, NULL, NULL, 0, NULL, NULL, NULL, '', NULL, NULL, NULL, NULL);
    INSERT INTO T VALUES(5, 1, 1, 1, 'many', 'few', 'none', 'yes', '', '', '', CAST(x'41FFC3' AS TEXT),
      CAST(x'E282' AS TEXT), CAST(x'0A00F09F0A' AS TEXT), NULL, NULL))";

constexpr std::string_view kColumns[] = {"ID",   "Big",    "Tiny",    "Small",  "Number", "Price",
                                         "Cost", "Active", "Day",     "Moment", "Clock",  "Name",
                                         "Code", "Notes",  "Picture", "Mark"};

/// All records as SQL literals; texts, which may hold any byte, in hexadecimal.
std::string Stored(const TemporaryDatabase& database) {
  std::string row = "''";
  for (const std::string_view column : kColumns) {
    const std::string name(column);
    row += "||' " + name + "='||typeof(" + name + ")||' '||quote(CAST(" + name + " AS BLOB))";
  }
  return database.Value("SELECT group_concat(r, ';') FROM (SELECT " + row + " AS r FROM T ORDER BY ID)");
}

struct Shop : ViewPage {
  explicit Shop(std::string_view statements = kRecords) : ViewPage(statements) {
    view.Set("sql", std::string("SELECT * FROM T"));
    view.Set("EditOptions", std::string("ADD UPDATE"));
    view.Set("EditPrimaryKeys", std::string("ID"));
  }

  /// The page of the edit form of a record, as reached by the Edit button.
  std::string EditForm(int id) {
    page.form = {
        {"Morvu1FormDisplay", "formOneRec"}, {"Morvu1PK", std::to_string(id)}, {"Morvu1FormEdit", "Edit"}};
    return Render();
  }

  /// Posts what the browser posts for the page, and returns the page that comes back.
  std::string Save(std::vector<platform::RequestField> form) {
    page.form = std::move(form);
    page.Memory() = nullptr;  // Each save is a request of its own.
    return Render();
  }

  std::string Status() const { return view.LatestOutcome().status_message; }
};

std::string& ValueOf(std::vector<platform::RequestField>& form, std::string_view field) {
  for (platform::RequestField& one : form) {
    if (one.name == "Morvu1_Form_" + std::string(field)) return one.value;
  }
  throw std::out_of_range(std::string(field));
}

/// Saves the untouched form of the record in a shop with that setting.
void ExpectUntouched(int id, std::string_view setting, const component::PropertyValue& value) {
  Shop shop;
  shop.view.Set(setting, value);
  const std::string before = Stored(shop.database);
  shop.Save(PostedByBrowser(shop.EditForm(id), "Morvu1FormUpdate"));
  EXPECT_EQ(shop.ErrorMessage(), "");
  EXPECT_EQ(shop.Status(), "&nbsp;[Record saved ok]") << id << setting;
  EXPECT_EQ(Stored(shop.database), before) << id << setting;
}

TEST(SavingAnUntouchedForm, ChangesNoRecord) {
  for (int id = 1; id <= 5; ++id) {
    for (const bool use_css : {true, false}) ExpectUntouched(id, "UseCSS", use_css);
    ExpectUntouched(id, "EditFieldsReadOnly", std::string("*"));
  }
}

TEST(SavingAnUntouchedForm, ChangesNoRecordWhoseKeyIsHidden) {
  ExpectUntouched(1, "FormFieldsShow", std::string("Name,Active"));
}

TEST(SavingAnUntouchedForm, ChangesNoMegabyteOfText) {
  // Six thousand paragraphs of 180 letters, each behind what a page has to carry with care.
  Shop shop(
      "CREATE TABLE T(ID INTEGER PRIMARY KEY, Notes TEXT); INSERT INTO T VALUES(1, char(10) || "
      "replace(hex(zeroblob(6000)), '00', char(13,10) || '<&\"' || char(9) || '&amp;' || char(128512) || "
      "replace(hex(zeroblob(90)), '0', 'x')))");
  EXPECT_GT(std::stoi(shop.database.Value("SELECT length(CAST(Notes AS BLOB)) FROM T")), 1048576);
  const std::string before = shop.database.Value("SELECT hex(Notes) FROM T");

  const auto form = PostedByBrowser(shop.EditForm(1), "Morvu1FormUpdate");
  shop.Save(form);

  EXPECT_EQ(shop.Status(), "&nbsp;[Record saved ok]");
  EXPECT_EQ(shop.database.Value("SELECT hex(Notes) FROM T"), before);
}

TEST(SavingAForm, ChangesTheOneFieldThatWasTouched) {
  Shop shop;
  auto form = PostedByBrowser(shop.EditForm(1), "Morvu1FormUpdate");
  EXPECT_EQ(ValueOf(form, "Notes"), "\r\na");
  EXPECT_EQ(ValueOf(form, "Name"), "O'Neil & \"Sons\" &amp; &copy");
  std::string expected = Stored(shop.database);
  const std::string_view code = "Code=text X'207820'";
  expected.replace(expected.find(code), code.size(), "Code=text X'6E6577'");

  ValueOf(form, "Code") = "new";
  shop.Save(form);

  EXPECT_EQ(shop.Status(), "&nbsp;[Record saved ok]");
  EXPECT_EQ(Stored(shop.database), expected);
}

TEST(SavingAForm, ThatFailedShowsWhatWasTypedAndCanBeSavedAgain) {
  Shop shop;
  auto form = PostedByBrowser(shop.EditForm(1), "Morvu1FormUpdate");
  const std::string before = Stored(shop.database);
  ValueOf(form, "Notes") = "\r\n</textarea>typed &amp; \"quoted\"";
  ValueOf(form, "Small") = "many";
  std::erase_if(form, [](const auto& field) { return field.name == "Morvu1_Form_Active"; });

  const std::string failed = shop.Save(form);
  EXPECT_EQ(shop.Status(), "&nbsp;many is not a number");
  EXPECT_EQ(Stored(shop.database), before);

  auto again = PostedByBrowser(failed, "Morvu1FormUpdate");
  EXPECT_EQ(ValueOf(again, "Notes"), "\r\n</textarea>typed &amp; \"quoted\"");
  EXPECT_EQ(ValueOf(again, "Small"), "many");
  EXPECT_THROW(ValueOf(again, "Active"), std::out_of_range) << "unticked";
  ValueOf(again, "Small") = "12";
  shop.Save(again);
  EXPECT_EQ(shop.Status(), "&nbsp;[Record saved ok]");
  EXPECT_EQ(shop.database.Value("SELECT Small||' '||Active||' '||Notes FROM T WHERE ID=1"),
            "12 0 \r\n</textarea>typed &amp; \"quoted\"");
}

TEST(SavingAForm, OfAFailedInsertStaysAnInsert) {
  Shop shop;
  shop.page.form = {{"Morvu1FormDisplay", "formOneRec"}, {"Morvu1FormAdd", "Add"}};
  auto form = PostedByBrowser(shop.Render(), "Morvu1FormUpdate");
  ValueOf(form, "ID") = "77";
  ValueOf(form, "Code") = "typed";

  const std::string failed = shop.Save(form);
  EXPECT_EQ(shop.Status(), "&nbsp;Record WAS NOT SAVED. Fill out all required fields.");

  auto again = PostedByBrowser(failed, "Morvu1FormUpdate");
  ValueOf(again, "Name") = "Ann";
  shop.Save(again);
  EXPECT_EQ(shop.Status(), "&nbsp;[New record saved ok]");
  EXPECT_EQ(shop.database.Value("SELECT Name||Code FROM T WHERE ID=77"), "Anntyped");
}

}  // namespace
}  // namespace dralo::tests
