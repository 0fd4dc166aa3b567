#include "state/page_fields.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fake_page.h"

namespace dralo::state {
namespace {

using tests::FakePage;

std::string FormFields(const FakePage& page, const settings::Settings& settings = {}) {
  html::HtmlWriter out;
  PutPageFormFields(out, settings, page.GetRequest());
  return out.Take();
}

std::string QueryFields(const FakePage& page, const settings::Settings& settings = {}) {
  html::HtmlWriter out;
  PutPageQueryFields(out, settings, page.GetRequest());
  return out.Take();
}

settings::Settings WithTag(std::string tag) {
  settings::Settings settings;
  settings.Tag = std::move(tag);
  return settings;
}

TEST(PageFormFields, AreWrittenBackAsHiddenInputsQueryStringFirst) {
  FakePage page;
  page.form = {{"City", "Bergen"}};
  page.query = {{"Search", "sild"}, {"Sort", ""}};

  EXPECT_EQ(FormFields(page),
            "<input type=\"hidden\" name=\"Search\" value=\"sild\">\r\n"
            "<input type=\"hidden\" name=\"Sort\" value=\"\">\r\n"
            "<input type=\"hidden\" name=\"City\" value=\"Bergen\">\r\n");
}

TEST(PageFormFields, OfThePostedFormAreLeftOutUnlessThePageWantsThem) {
  FakePage page;
  page.form = {{"City", "Bergen"}};
  page.query = {{"Search", "sild"}};
  settings::Settings settings;
  settings.PersistPageFormRequest = false;

  EXPECT_EQ(FormFields(page, settings), "<input type=\"hidden\" name=\"Search\" value=\"sild\">\r\n");
  EXPECT_EQ(QueryFields(page, settings), "&Search=sild");
}

TEST(PageFormFields, HaveDoubleQuotesReplacedInTheirValues) {
  FakePage page;
  page.form = {{"Search", "5\" <b>'x'</b> & \""}};

  EXPECT_EQ(FormFields(page),
            "<input type=\"hidden\" name=\"Search\" value=\"5&quot; <b>'x'</b> & &quot;\">\r\n");
}

TEST(PageFormFields, HaveDoubleQuotesReplacedInTheirNamesToo) {
  FakePage page;
  page.form = {{"x\" onfocus=\"alert(1)", "1"}};

  EXPECT_EQ(FormFields(page),
            "<input type=\"hidden\" name=\"x&quot; onfocus=&quot;alert(1)\" value=\"1\">\r\n");
}

TEST(PageFormFields, WithSeveralValuesAreOneInputPerValueInOrder) {
  FakePage page;
  page.form = {{"Color", "red"}, {"Size", "L"}, {"Color", "blue"}};

  EXPECT_EQ(FormFields(page),
            "<input type=\"hidden\" name=\"Color\" value=\"red\">\r\n"
            "<input type=\"hidden\" name=\"Size\" value=\"L\">\r\n"
            "<input type=\"hidden\" name=\"Color\" value=\"blue\">\r\n");
}

TEST(PageFormFields, ThatStandInBothCollectionsAreWrittenTwice) {
  FakePage page;
  page.form = {{"Search", "new"}};
  page.query = {{"Search", "old"}};

  EXPECT_EQ(FormFields(page),
            "<input type=\"hidden\" name=\"Search\" value=\"old\">\r\n"
            "<input type=\"hidden\" name=\"Search\" value=\"new\">\r\n");
}

TEST(PageFormFields, NeverRepeatTheKeysOfTheViewItself) {
  FakePage page;
  page.form = {{"Morvu1CurrRecord", "21"}, {"Morvu1NEXT.x", "3"}, {"Morvu1_Form_Name", "x"}, {"Morvu1", "y"}};
  page.query = {{"Morvu1PK", "7"}};

  EXPECT_EQ(FormFields(page), "");
  EXPECT_EQ(QueryFields(page), "");
}

TEST(PageFormFields, KeepTheKeysOfOtherViews) {
  FakePage page;
  page.form = {{"Morvu2CurrRecord", "21"}, {"Morvu2NEXT.x", "3"}};

  EXPECT_EQ(FormFields(page),
            "<input type=\"hidden\" name=\"Morvu2CurrRecord\" value=\"21\">\r\n"
            "<input type=\"hidden\" name=\"Morvu2NEXT.x\" value=\"3\">\r\n");
}

TEST(PageFormFields, TakeTheKeysOfALongerTagWithTheSameFirstCharacterForOwnOnes) {
  FakePage page;
  page.form = {{"Morvu12CurrRecord", "21"}};

  EXPECT_EQ(FormFields(page, WithTag("1")), "");
}

TEST(PageFormFields, RepeatTheKeysOfTheViewItselfWhenItsTagIsNotOneCharacter) {
  FakePage page;
  page.form = {{"Morvu12CurrRecord", "21"}, {"MorvuCurrRecord", "41"}};
  const std::string both =
      "<input type=\"hidden\" name=\"Morvu12CurrRecord\" value=\"21\">\r\n"
      "<input type=\"hidden\" name=\"MorvuCurrRecord\" value=\"41\">\r\n";

  EXPECT_EQ(FormFields(page, WithTag("12")), both);
  EXPECT_EQ(FormFields(page, WithTag("")), both);
}

TEST(PageFormFields, CompareSixCharactersAndNotBytes) {
  FakePage page;
  page.form = {{"MorvuøPK", "1"}, {"MorvuåPK", "2"}};

  EXPECT_EQ(FormFields(page, WithTag("ø")), "<input type=\"hidden\" name=\"MorvuåPK\" value=\"2\">\r\n");
}

TEST(PageFormFields, RecognizeOwnKeysInTheirExactLetterCaseOnly) {
  FakePage page;
  page.form = {{"morvu1CurrRecord", "21"}, {"MORVUaPK", "1"}, {"MorvuAPK", "2"}, {"MorvuaPK", "3"}};

  EXPECT_EQ(FormFields(page, WithTag("a")),
            "<input type=\"hidden\" name=\"morvu1CurrRecord\" value=\"21\">\r\n"
            "<input type=\"hidden\" name=\"MORVUaPK\" value=\"1\">\r\n"
            "<input type=\"hidden\" name=\"MorvuAPK\" value=\"2\">\r\n");
}

class Command : public testing::TestWithParam<const char*> {};

TEST_P(Command, OfAnotherViewIsNeverGivenAgain) {
  FakePage page;
  page.form = {{GetParam(), "Save"}, {"City", "Bergen"}};
  page.query = {{GetParam(), "Save"}};

  EXPECT_EQ(FormFields(page), "<input type=\"hidden\" name=\"City\" value=\"Bergen\">\r\n");
  EXPECT_EQ(QueryFields(page), "&City=Bergen");
}

INSTANTIATE_TEST_SUITE_P(Keys, Command,
                         testing::Values("Morvu2FormUpdate", "Morvu2FormDelete", "MorvuordersFormUpdate",
                                         "MorvuFormDelete", "morvu2formupdate", "MORVU2FORMDELETE",
                                         "Morvu2ToExcel", "Morvu2ToExcel.x", "Morvu2ToExcel.y",
                                         "MorvuordersToExcel.x", "MorvuToExcel.y", "mORVU2TOEXCEL.X"));

TEST(PageFormFields, OnlyLookLikeACommandWithThePrefixAndTheEnding) {
  FakePage page;
  page.form = {{"FormUpdate", "1"}, {"myMorvu2FormDelete", "2"}, {"Morvu2FormUpdates", "3"}, {"Morvu", "4"},
               {"ToExcel.x", "5"},  {"Morvu2ToExcel.z", "6"},    {"Morvu2ToExcelx", "7"},    {".x", "8"}};

  EXPECT_EQ(QueryFields(page),
            "&FormUpdate=1&myMorvu2FormDelete=2&Morvu2FormUpdates=3&Morvu=4"
            "&ToExcel%2Ex=5&Morvu2ToExcel%2Ez=6&Morvu2ToExcelx=7&%2Ex=8");
}

TEST(PageFormFields, OfALongTagKeepEverythingButItsCommands) {
  FakePage page;
  page.form = {{"Morvu12FormUpdate", "Save"}, {"Morvu12FormEdit", "Edit"}, {"Morvu12_Form_Name", "x"}};

  EXPECT_EQ(QueryFields(page, WithTag("12")), "&Morvu12FormEdit=Edit&Morvu12%5FForm%5FName=x");
}

TEST(PageQueryFields, EncodeNamesAndValues) {
  FakePage page;
  page.query = {{"na me&", "O'Hara & \"Søn\"=+"}};

  EXPECT_EQ(QueryFields(page), "&na+me%26=O%27Hara+%26+%22S%C3%B8n%22%3D%2B");
}

TEST(PageQueryFields, WalkTheSameFieldsAsTheHiddenInputs) {
  FakePage page;
  page.form = {{"City", "Bergen"}, {"Color", "red"}, {"Color", "blue"}, {"Morvu1PK", "7"}};
  page.query = {{"Search", "sild"}, {"Morvu2PK", ""}};

  EXPECT_EQ(QueryFields(page), "&Search=sild&Morvu2PK=&City=Bergen&Color=red&Color=blue");
}

TEST(PageQueryFields, AreNothingWithoutFields) {
  EXPECT_EQ(QueryFields(FakePage()), "");
  EXPECT_EQ(FormFields(FakePage()), "");
}

}  // namespace
}  // namespace dralo::state
