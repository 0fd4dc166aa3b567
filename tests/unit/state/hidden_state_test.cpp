#include "state/hidden_state.h"

#include <gtest/gtest.h>

#include <string>

#include "settings/setters.h"
#include "support/contains.h"
#include "support/rendering.h"

namespace dralo::state {
namespace {

/// A rendering of a grid, which a test changes before it asks for the hidden state.
struct Form : tests::Rendering {
  std::int32_t records_on_page = 20;
  std::string form_display = "";

  std::string Html() {
    return Text([&](html::HtmlWriter&, Render& render) {
      render.view.form_display = form_display;
      render.view.records_on_page = records_on_page;
      PutHiddenState(render);
    });
  }
};

struct HiddenState : testing::Test {
  Form form;
};

TEST_F(HiddenState, IsWrittenInAFixedOrder) {
  form.current_record = 21;
  form.settings.PersistentSQL = true;
  form.settings.sql = "SELECT * FROM Orders";
  form.settings.OrderByFields = "2";
  form.settings.OrderByDesc = true;
  form.form_display = "formOneRec";
  form.page.form = {{"Search", "sild"}, {"Morvu1CurrRecord", "1"}};

  EXPECT_EQ(form.Html(),
            "<input type=\"hidden\" name=\"Morvu1CurrRecord\" value=\"21\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1CountRecords\" value=\"on\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1maxrecords\" value=\"20\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1SQL\" value=\"SELECT * FROM Orders\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1FormDisplay\" value=\"formOneRec\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1OrderByFields\" value=\"2\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1OrderByDesc\" value=\"True\">\r\n"
            "<input type=\"hidden\" name=\"Search\" value=\"sild\">\r\n");
}

TEST_F(HiddenState, OfAPlainGridHasNoStatementAndEmptyViewAndOrder) {
  form.settings.sql = "SELECT * FROM Orders";

  EXPECT_EQ(form.Html(),
            "<input type=\"hidden\" name=\"Morvu1CurrRecord\" value=\"1\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1CountRecords\" value=\"on\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1maxrecords\" value=\"20\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1FormDisplay\" value=\"\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1OrderByFields\" value=\"\">\r\n"
            "<input type=\"hidden\" name=\"Morvu1OrderByDesc\" value=\"\">\r\n");
}

TEST_F(HiddenState, AsksForTheCountOnlyWhenRecordsAreCounted) {
  form.settings.CountRecords = false;

  EXPECT_FALSE(tests::Contains(form.Html(), "CountRecords"));
}

TEST_F(HiddenState, BearsTheTagOfItsView) {
  form.settings.Tag = "2";

  EXPECT_TRUE(tests::Contains(form.Html(), "name=\"Morvu2CurrRecord\""));
  EXPECT_FALSE(tests::Contains(form.Html(), "Morvu1"));
}

TEST_F(HiddenState, WritesTheStatementAsItStands) {
  form.settings.PersistentSQL = true;
  form.settings.sql = "SELECT \"Name\" FROM Orders WHERE City='Bergen'";

  EXPECT_TRUE(tests::Contains(
      form.Html(), "name=\"Morvu1SQL\" value=\"SELECT \"Name\" FROM Orders WHERE City='Bergen'\">"));
}

TEST_F(HiddenState, KeepsTextsOfTheVisitorInsideTheirAttributes) {
  form.form_display = "x\"><script>";
  form.settings.OrderByFields = "\"Name\"";

  const std::string html = form.Html();

  EXPECT_TRUE(tests::Contains(html, "name=\"Morvu1FormDisplay\" value=\"x&quot;><script>\">\r\n"));
  EXPECT_TRUE(tests::Contains(html, "name=\"Morvu1OrderByFields\" value=\"&quot;Name&quot;\">\r\n"));
}

TEST_F(HiddenState, WritesTheOrderEmptyWhenItAscendsBecauseAnyTextWouldDescend) {
  form.settings.OrderByFields = "2";

  EXPECT_TRUE(tests::Contains(form.Html(), "name=\"Morvu1OrderByDesc\" value=\"\">\r\n"));
}

TEST_F(HiddenState, CarriesThePageSizeOfTheGridInTheOneRecordView) {
  form.mode = state::Mode::kFormView;
  form.records_on_page = 1;
  form.current_record = 27;

  EXPECT_TRUE(tests::Contains(form.Html(), "name=\"Morvu1CurrRecord\" value=\"27\">\r\n"));
  EXPECT_TRUE(tests::Contains(form.Html(), "name=\"Morvu1maxrecords\" value=\"20\">\r\n"));
}

struct SizeCase {
  bool select;
  const char* placement;
  bool form_view;
  std::int32_t records_on_page;
  bool hidden_size;
};

class PageSize : public testing::TestWithParam<SizeCase> {};

TEST_P(PageSize, IsHiddenExactlyWhenNoSelectCarriesIt) {
  Form form;
  form.settings.DisplayRecordsPerPageSelect = GetParam().select;
  settings::SetRecordsPerPageSelectPlacement(form.settings, GetParam().placement);
  form.mode = GetParam().form_view ? Mode::kFormView : Mode::kGrid;
  form.records_on_page = GetParam().records_on_page;

  EXPECT_EQ(tests::Contains(form.Html(), "maxrecords"), GetParam().hidden_size);
}

INSTANTIATE_TEST_SUITE_P(
    Views, PageSize,
    testing::Values(SizeCase{false, "top", false, 20, true}, SizeCase{true, "top", false, 20, false},
                    SizeCase{true, " Bottom ", false, 20, false}, SizeCase{true, "none", false, 20, true},
                    SizeCase{true, "top", true, 1, true}, SizeCase{true, "bottom", true, 1, true},
                    SizeCase{true, "top", true, 3, false}, SizeCase{true, "bottom", true, 3, false},
                    SizeCase{false, "bottom", true, 3, true}));

TEST_F(HiddenState, LeavesThePostedFormOutWhenThePageSaysSo) {
  form.settings.PersistPageFormRequest = false;
  form.page.form = {{"Search", "sild"}};
  form.page.query = {{"Menu", "3"}};

  EXPECT_FALSE(tests::Contains(form.Html(), "Search"));
  EXPECT_TRUE(form.Html().ends_with("<input type=\"hidden\" name=\"Menu\" value=\"3\">\r\n"));
}

TEST_F(HiddenState, StandsBeforeTheRepeatedKeysOfALongTagSoThatItIsReadFirst) {
  form.settings.Tag = "12";
  form.current_record = 41;
  form.page.form = {{"Morvu12CurrRecord", "21"}};

  const std::string html = form.Html();

  EXPECT_LT(html.find("name=\"Morvu12CurrRecord\" value=\"41\""),
            html.find("name=\"Morvu12CurrRecord\" value=\"21\""));
  EXPECT_TRUE(tests::Contains(html, "name=\"Morvu12CurrRecord\" value=\"21\""));
}

}  // namespace
}  // namespace dralo::state
