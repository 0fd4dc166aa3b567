#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "support/items.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

/// A view over 45 items with keys, as a page shows it.
struct FormView : testing::Test {
  ItemsPage page{45};

  FormView() { Set("EditPrimaryKeys", "ID"); }

  void Set(std::string_view name, const char* text) { page.view.Set(name, std::string(text)); }
  void Set(std::string_view name, int number) { page.view.Set(name, std::int64_t{number}); }
};

constexpr std::string_view kTable = "<table width=\"100%\" class=\"DRLOTableFormDataView\">\r\n";

bool HasListLink(const std::string& body) { return body.find("\">List</a>") != body.npos; }

TEST_F(FormView, ShowsTheOneRecordThatTheGridsLinkLeadsTo) {
  page.Ask("FormDisplay", "formOneRec");
  page.Ask("BookMark", "27");

  const std::string body = page.Render();

  EXPECT_EQ(CountOf(kTable, body), 1);
  EXPECT_EQ(CountOf("<td>Item 27</td></tr>\r\n</table></td></tr>\r\n", body), 1);
  EXPECT_EQ(page.ErrorMessage(), "");
}

TEST_F(FormView, ShowsThreeRecordsWithTwoGapsWhenThePageAsksForThem) {
  Set("DisplayType", "Form");
  Set("RecordsPerPage", 3);

  const std::string body = page.Render();

  EXPECT_EQ(CountOf(kTable, body), 3);
  EXPECT_EQ(CountOf("DRLOTableTRFormGap", body), 2);
  EXPECT_EQ(ItemsShown(body), Range(1, 3));
}

TEST_F(FormView, HasNoGapWithOneRecordOnAPage) {
  Set("RecordsPerPage", 1);

  const std::string body = page.Render();

  EXPECT_EQ(CountOf(kTable, body), 1);
  EXPECT_EQ(CountOf("Gap", body), 0);
}

TEST_F(FormView, StandsInTheFormBeforeTheHiddenState) {
  page.Ask("FormDisplay", "formOneRec");

  const std::string body = page.Render();
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

  page.Render();

  EXPECT_EQ(page.view.CurrentRecord(1), platform::Variant(std::int64_t{3}));
  EXPECT_EQ(page.view.CurrentRecord(2), platform::Variant(std::string("Item 3")));
  EXPECT_EQ(page.view.CurrentRecord(3), platform::Variant(std::string()));
}

TEST_F(FormView, TellsWhereItsLastRecordEnds) {
  Set("DisplayType", "form");
  Set("RecordsPerPage", 10);
  page.Ask("CurrRecord", "41");

  page.Render();

  EXPECT_EQ(page.Settings().FromRow, 41);
  EXPECT_EQ(page.Settings().ToRow, 45);
}

TEST_F(FormView, OffersToAddWhenThereIsNoRecordLeft) {
  page.database.Run("DELETE FROM Items");
  Set("EditOptions", "ADD UPDATE");
  page.Ask("FormDisplay", "formOneRec");

  const std::string body = page.Render();

  EXPECT_EQ(CountOf("name=\"Morvu1FormAdd\"", body), 1);
  EXPECT_EQ(CountOf("name=\"Morvu1FormEdit\"", body), 0);
  EXPECT_EQ(page.ErrorMessage(), "");
}

TEST_F(FormView, HasAListLinkHoweverItIsReached) {
  EXPECT_FALSE(HasListLink(page.Render()));

  Set("RecordsPerPage", 1);
  EXPECT_TRUE(HasListLink(page.Render()));

  Set("DisplayType", "form");
  EXPECT_TRUE(HasListLink(page.Render()));

  Set("RecordsPerPage", 5);
  EXPECT_TRUE(HasListLink(page.Render()));
}

TEST_F(FormView, HasAListLinkOverTheEditFormToo) {
  Set("EditOptions", "UPDATE");
  page.Ask("FormDisplay", "formOneRec");
  page.Ask("FormEdit", "1");

  EXPECT_TRUE(HasListLink(page.Render()));
  EXPECT_EQ(page.view.CurrentMode(), "formedit");
}

TEST_F(FormView, HasAListLinkOverTheAddFormToo) {
  Set("EditOptions", "ADD UPDATE");
  page.Ask("FormDisplay", "formOneRec");
  page.Ask("FormAdd", "1");

  EXPECT_TRUE(HasListLink(page.Render()));
  EXPECT_EQ(page.view.CurrentMode(), "formadd");
}

}  // namespace
}  // namespace dralo::tests
