#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/contains.h"
#include "support/shown_view.h"
#include "support/view_page.h"

/// Records of hardened pages whose keys have several columns.
namespace dralo::driver {
namespace {

constexpr char kLines[] =
    "CREATE TABLE Lines(Shop VARCHAR(20), Nr INTEGER, Note VARCHAR(20), PRIMARY KEY(Shop, Nr));"
    "INSERT INTO Lines VALUES('a,b',1,'one'),('a%2Cb',1,'two'),('',1,'three'),('a,b,1',2,'four')";

struct HardenedKeys : testing::Test, tests::ViewPage {
  HardenedKeys() : ViewPage(kLines) {
    Set({{"Hardened", true},
         {"sql", "SELECT Note, Nr, Shop FROM Lines"},
         {"OrderByFields", "rowid"},
         {"EditOptions", "UPDATE"},
         {"EditPrimaryKeys", "Shop,Nr"}});
  }

  /// The query of the link on the record number.
  tests::FakePage::Fields Link(int number) {
    const std::string grid = Render();
    const std::size_t to = grid.find("\">" + std::to_string(number) + "</a>");
    const std::string_view start = "href=\"";
    const std::size_t from = grid.rfind(start, to) + start.size();
    return tests::QueryOf(grid.substr(from, to - from));
  }

  /// What the form of the record holds in that input.
  std::string Shown(std::string_view key, std::string_view input) {
    tests::FakePage::Fields query = std::exchange(page.query, {});
    Ask({{"FormDisplay", "formOneRec"}, {"FormEdit", "1"}, {"PK", key}});
    std::string value = "(nothing)";
    for (const auto& control : tests::ReadView(Render(), "1").controls) {
      if (control.name == input) value = control.value;
    }
    page.query = std::move(query);
    return value;
  }
};

TEST_F(HardenedKeys, AreFoundByTheirLinks) {
  const char* const notes[] = {"one", "two", "three", "four"};
  for (int number = 1; number <= 4; ++number) {
    page.query.clear();
    page.query = Link(number);
    const std::string body = Render();
    EXPECT_TRUE(tests::Contains(body, std::string("<td>") + notes[number - 1] + "</td>")) << body;
    EXPECT_EQ(ErrorMessage(), "");
  }
}

TEST_F(HardenedKeys, AreSavedByTheHiddenKey) {
  const std::string digest = Shown("a%252Cb,1", "Morvu1_Was_Note");
  Post({{"FormUpdate", "Save"}, {"PK", "a%252Cb,1"}, {"_Form_Note", "new"}, {"_Was_Note", digest}});
  Render();
  EXPECT_EQ(ErrorMessage(), "");
  EXPECT_EQ(database.Value("SELECT group_concat(Note) FROM Lines"), "one,new,three,four");
}

TEST_F(HardenedKeys, AreNoneWithoutAllTheirItems) {
  for (const char* key : {"a%2Cb", "a,b,1", "a%2Cb,1,2", "a%2Cb,x", "", ","}) {
    SCOPED_TRACE(key);
    page.query.clear();
    Ask({{"FormDisplay", "formOneRec"}, {"PK", key}});
    const std::string before = ErrorMessage();
    EXPECT_FALSE(tests::Contains(Render(), "<td>one</td>"));
    EXPECT_EQ(ErrorMessage().substr(before.size()), "Message 18: There is no such record.<br>");
  }
}

/// Records that cannot be addressed are opened by their number, and not saved.
TEST_F(HardenedKeys, OfNullAreNoKeys) {
  database.Run(
      "CREATE TABLE Loose(K VARCHAR(9), Note VARCHAR(9)); INSERT INTO Loose VALUES(NULL,'x'),('','y')");
  Set({{"FormSQL", ""}, {"EditSQL", ""}, {"sql", "SELECT K, Note FROM Loose"}, {"EditPrimaryKeys", "K"}});
  const std::string grid = Render();
  EXPECT_TRUE(tests::Contains(grid, "Morvu1BookMark=1")) << grid;
  EXPECT_TRUE(tests::Contains(grid, "Morvu1PK=&")) << grid;
  Ask({{"FormDisplay", "formOneRec"}, {"CurrRecord", "1"}, {"FormEdit", "1"}});
  const std::string form = Render();
  EXPECT_TRUE(tests::Contains(form, "value=\"x\"")) << form;
  EXPECT_FALSE(tests::Contains(form, "name=\"Morvu1PK\"")) << form;
}

}  // namespace
}  // namespace dralo::driver
