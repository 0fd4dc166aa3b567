#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "dralo/error.h"
#include "support/hostile_fields.h"
#include "support/html_elements.h"
#include "support/items.h"
#include "text/letter_case.h"

namespace dralo::driver {
namespace {

using tests::FakePage;

constexpr int kRows = 45;

struct Site {
  const char* name;
  tests::Script script;
  const char* statements = "";
};

void PrintTo(const Site& site, std::ostream* out) { *out << site.name; }

/// How a request was answered.
struct Answer {
  std::string body;
  std::string message;
  bool is_export = false;

  bool IsWholePage() const { return body.ends_with("</form>\r\n</table>\r\n"); }
};

bool HasKey(const FakePage& page, std::string_view ending) {
  const auto ends_so = [&](const platform::RequestField& field) {
    return field.name.size() >= ending.size() &&
           text::EqualIgnoringCase(field.name.substr(field.name.size() - ending.size()), ending);
  };
  return std::ranges::any_of(page.query, ends_so) || std::ranges::any_of(page.form, ends_so);
}

std::string Described(const FakePage& page) {
  std::string text;
  for (const auto* fields : {&page.query, &page.form}) {
    for (const platform::RequestField& field : *fields)
      text += "\n" + field.name.substr(0, 100) + "=" + field.value.substr(0, 100);
  }
  return text;
}

/// Tags and attributes that stand in the page although the component writes none of that name.
std::string BrokenOut(std::string_view body) {
  for (const tests::Element& element : tests::Elements(body)) {
    if (element.name.find("zzz") != element.name.npos) return "<" + std::string(element.name);
    for (const auto& [name, value] : element.attributes) {
      if (name.find("zzz") != name.npos) return std::string(name);
      if (name == "onclick" && std::ranges::count(value, '\'') != 2) return value;
    }
  }
  return "";
}

class Attack : public ::testing::TestWithParam<Site> {
 protected:
  Attack() { database_.Run(GetParam().statements); }

  /// The page must be whole or say what went wrong, and must leave the database to others.
  Answer Send(FakePage& page) {
    component::DbView view(tests::TestEnvironment());
    view.OnStartPage(page);
    view.Set("ConnectionString", database_.ConnectionString());
    view.Set("sql", std::string("SELECT * FROM Items"));
    for (const tests::Setting& setting : GetParam().script) view.Set(setting.property, setting.value);
    Answer answer;
    try {
      view.WriteHtmlTable();
    } catch (const platform::Error& error) {
      answer.message = error.what();
    }
    answer.body = page.body;
    answer.message += view.GetSettings().ErrorMessage;
    answer.is_export = std::ranges::count(page.calls, "end") > 0;
    // A statement of the visitor's own may hold the file until the page ends.
    if (!HasKey(page, "SQL")) RequireUnlocked();
    view.OnEndPage();
    RequireUnlocked();
    return answer;
  }

  void Check(const Answer& answer) {
    EXPECT_TRUE(answer.IsWholePage() || !answer.message.empty() || answer.is_export);
    EXPECT_EQ(BrokenOut(answer.body), "");
  }

  void CheckCleanRequest() {
    FakePage page;
    page.query = {{"Morvu1maxrecords", "3"}, {"Morvu12maxrecords", "3"}};
    const Answer answer = Send(page);
    EXPECT_TRUE(answer.IsWholePage()) << answer.message;
  }

  tests::TemporaryDatabase database_{tests::ViewPage::ItemsTable(kRows)};

 private:
  void RequireUnlocked() const { ASSERT_NO_THROW(database_.Run("BEGIN EXCLUSIVE; ROLLBACK")); }
};

TEST_P(Attack, OfAnyKindGivesAPageOrAMessageAndLeavesNothingBehind) {
  tests::HostileFields fields(20'240'301);
  int pages = 0;
  int messages = 0;
  for (int request = 0; request < 500 && !HasFailure(); ++request) {
    FakePage page;
    for (std::size_t field = 1 + fields.Below(8); field > 0; --field)
      (fields.Below(2) == 0 ? page.query : page.form).push_back(fields.Next());
    SCOPED_TRACE("request " + std::to_string(request) + Described(page));
    const Answer answer = Send(page);
    Check(answer);
    ++(answer.IsWholePage() ? pages : messages);
    if (request % 5 == 0) CheckCleanRequest();
  }
  EXPECT_GT(pages, 20);
  EXPECT_GT(messages, 20);
}

const Site kSites[] = {
    {"plain", {}},
    {"uncounted", {{"CountRecords", false}}},
    {"decorated",
     {{"DisplayNavBar", "both"},
      {"EditOptions", "ADD"},
      {"DisplayRecordsPerPageSelect", true},
      {"RecordsMaxLimit", 30},
      {"EditPerformUpdates", false}}},
    {"long tag", {{"Tag", "12"}, {"UseCSS", false}}},
    {"form", {{"DisplayType", "form"}, {"EditOptions", "ADD UPDATE"}, {"RecordsPerPage", 3}}},
    {"edited",
     {{"DisplayType", "form"},
      {"EditOptions", "ALL"},
      {"EditPrimaryKeys", "Name"},
      {"EditSQL", "SELECT Name, ID FROM Items"},
      {"EditFieldsReadOnly", "*"},
      {"DeleteSQL", "DELETE FROM Items"}}},
    {"never saved",
     {{"EditOptions", "ALL NOVIEW"},
      {"EditPrimaryKeys", "Name"},
      {"EditSQL", "SELECT Name, ID FROM Items"},
      {"EditFieldsReadOnly", "ID"}},
     "CREATE TRIGGER Added BEFORE INSERT ON Items BEGIN SELECT RAISE(ABORT, 'no'); END;"
     "CREATE TRIGGER Changed BEFORE UPDATE ON Items BEGIN SELECT RAISE(ABORT, 'no'); END"},
    {"command", {{"sql", "WITH A AS (SELECT * FROM Items) SELECT * FROM A"}}},
};

INSTANTIATE_TEST_SUITE_P(Sites, Attack, ::testing::ValuesIn(kSites), [](const auto& site) {
  std::string name = site.param.name;
  std::erase(name, ' ');
  return name;
});

/// A page with three of its rows shown on each page.
struct LargeRequest : ::testing::Test, tests::ItemsPage {
  LargeRequest() : ItemsPage(kRows) { Set("RecordsPerPage", 3); }
};

TEST_F(LargeRequest, WithAMegabyteInAKeyIsAnswered) {
  for (const char* key : {"maxrecords", "CountRecords", "CurrRecord", "SQL", "FormDisplay", "OrderByFields",
                          "OrderByDesc", "NEXT.x", "LAST.x", "BookMark", "PK", "FormEdit", "FormAdd"}) {
    for (const char filling : {'9', '"', '\0'}) {
      tests::ItemsPage large(kRows);
      large.Ask("maxrecords", "3");
      large.page.form.push_back({std::string("Morvu1") + key, std::string(1'000'000, filling)});
      const std::string body = large.Render();
      EXPECT_NE(body.ends_with("</form>\r\n</table>\r\n"), !large.ErrorMessage().empty()) << key << filling;
      EXPECT_EQ(BrokenOut(body), "") << key << filling;
    }
  }
}

TEST_F(LargeRequest, WithAMegabyteInAFieldOfThePageCarriesItOn) {
  page.form.push_back({"Search", std::string(1'000'000, '"')});
  const std::string body = Render();
  EXPECT_NE(body.find("Item 3</td>"), body.npos);
  EXPECT_EQ(BrokenOut(body), "");
}

TEST_F(LargeRequest, WithThousandsOfFieldsCarriesThemOn) {
  tests::HostileFields fields(7);
  std::ptrdiff_t own = 0;
  while (own < 3'000) {
    platform::RequestField field = fields.Next();
    const bool belongs_to_a_view = text::EqualIgnoringCase(field.name.substr(0, 5), "Morvu");
    if (belongs_to_a_view) continue;
    page.form.push_back(std::move(field));
    ++own;
  }
  const std::string body = Render();
  EXPECT_EQ(ErrorMessage(), "");
  EXPECT_NE(body.find("Item 3</td>"), body.npos);
  EXPECT_EQ(BrokenOut(body), "");
  const auto is_input = [](const tests::Element& element) { return element["type"] == "hidden"; };
  EXPECT_EQ(std::ranges::count_if(tests::Elements(body), is_input), own + 6);
}

}  // namespace
}  // namespace dralo::driver
