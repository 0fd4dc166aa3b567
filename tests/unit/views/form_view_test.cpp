#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/items.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

/// A view over 45 items with keys, as a page shows it.
struct FormView : testing::Test, ItemsPage {
  FormView() : ItemsPage(45) { Set("EditPrimaryKeys", "ID"); }
};

constexpr std::string_view kTable = "<table width=\"100%\" class=\"DRLOTableFormDataView\">\r\n";

bool HasListLink(const std::string& body) { return body.find("\">List</a>") != body.npos; }

TEST_F(FormView, ShowsTheOneRecordThatTheGridsLinkLeadsTo) {
  Ask("FormDisplay", "formOneRec");
  Ask("BookMark", "27");

  const std::string body = Render();

  EXPECT_EQ(CountOf(kTable, body), 1);
  EXPECT_EQ(CountOf("<td>Item 27</td></tr>\r\n</table></td></tr>\r\n", body), 1);
  EXPECT_EQ(ErrorMessage(), "");
}

TEST_F(FormView, ShowsThreeRecordsWithTwoGapsWhenThePageAsksForThem) {
  Set("DisplayType", "Form");
  Set("RecordsPerPage", 3);

  const std::string body = Render();

  EXPECT_EQ(CountOf(kTable, body), 3);
  EXPECT_EQ(CountOf("DRLOTableTRFormGap", body), 2);
  EXPECT_EQ(ItemsShown(body), Range(1, 3));
}

TEST_F(FormView, HasNoGapWithOneRecordOnAPage) {
  Set("RecordsPerPage", 1);

  const std::string body = Render();

  EXPECT_EQ(CountOf(kTable, body), 1);
  EXPECT_EQ(CountOf("Gap", body), 0);
}

TEST_F(FormView, StandsInTheFormBeforeTheHiddenState) {
  Ask("FormDisplay", "formOneRec");

  const std::string body = Render();
  const std::size_t form = body.find("<form ");
  const std::size_t key = body.find("<input type=\"hidden\" name=\"Morvu1PK\" value=''>\r\n<tr><td><table");
  const std::size_t state = body.find("<input type=\"hidden\" name=\"Morvu1CurrRecord\" value=\"1\">");

  EXPECT_LT(form, key);
  EXPECT_LT(key, state);
  EXPECT_LT(state, body.find("</form>"));
}

TEST_F(FormView, GivesThePageTheValuesOfItsLastRecord) {
  Set("DisplayType", "form");
  Set("RecordsPerPage", 3);
  Set("FormFieldsShow", "Name");

  Render();

  EXPECT_EQ(view.CurrentRecord(1), platform::Variant(std::int64_t{3}));
  EXPECT_EQ(view.CurrentRecord(2), platform::Variant(std::string("Item 3")));
  EXPECT_EQ(view.CurrentRecord(3), platform::Variant(std::string()));
}

TEST_F(FormView, TellsWhereItsLastRecordEnds) {
  Set("DisplayType", "form");
  Set("RecordsPerPage", 10);
  Ask("CurrRecord", "41");

  Render();

  EXPECT_EQ(Settings().FromRow, 41);
  EXPECT_EQ(Settings().ToRow, 45);
}

TEST_F(FormView, HasAListLinkHoweverItIsReached) {
  EXPECT_FALSE(HasListLink(Render()));

  Set("RecordsPerPage", 1);
  EXPECT_TRUE(HasListLink(Render()));

  Set("DisplayType", "form");
  EXPECT_TRUE(HasListLink(Render()));

  Set("RecordsPerPage", 5);
  EXPECT_TRUE(HasListLink(Render()));
}

TEST_F(FormView, HasAListLinkOverTheEditFormAndTheAddFormToo) {
  Set("EditOptions", "ADD UPDATE");
  Ask("FormDisplay", "formOneRec");
  Ask("FormEdit", "1");
  EXPECT_TRUE(HasListLink(Render()));
  EXPECT_EQ(view.CurrentMode(), "formedit");

  page.query.back() = {"Morvu1FormAdd", "1"};
  EXPECT_TRUE(HasListLink(Render()));
  EXPECT_EQ(view.CurrentMode(), "formadd");
}

}  // namespace
}  // namespace dralo::tests
