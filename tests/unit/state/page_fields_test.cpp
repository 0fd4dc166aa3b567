#include "state/page_fields.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fake_page.h"
#include "support/fields_of.h"
#include "support/named_cases.h"

namespace dralo::state {
namespace {

using tests::FakePage;
using tests::FieldsOf;

/// Fields of a request, and those of them that the page gives again: as hidden inputs, with their double
/// quotes replaced already, and in links.
struct FieldsCase {
  std::string_view name, query, form, inputs, link;
  std::string_view tag = "1";
  bool keeps_form = true;
};

void ExpectFields(const FieldsCase& fields) {
  FakePage page;
  page.query = FieldsOf(fields.query);
  page.form = FieldsOf(fields.form);
  settings::Settings settings;
  settings.Tag = fields.tag;
  settings.PersistPageFormRequest = fields.keeps_form;
  std::string inputs;
  for (const auto& [name, value] : FieldsOf(fields.inputs)) {
    inputs += "<input type=\"hidden\" name=\"" + name + "\" value=\"" + value + "\">\r\n";
  }
  html::HtmlWriter html;
  PutPageFormFields(html, settings, page.GetRequest());
  EXPECT_EQ(html.Take(), inputs);
  html::HtmlWriter link;
  PutPageQueryFields(link, settings, page.GetRequest());
  EXPECT_EQ(link.Take(), fields.link);
}

class PageFields : public testing::TestWithParam<FieldsCase> {};

TEST_P(PageFields, AreGivenAgain) { ExpectFields(GetParam()); }

constexpr FieldsCase kValues[] = {
    {"QueryStringFirst", "Search:sild|Sort:", "City:Bergen", "Search:sild|Sort:|City:Bergen",
     "&Search=sild&Sort=&City=Bergen"},
    {"WithoutThePostedFormUnlessThePageWantsIt", "Search:sild", "City:Bergen", "Search:sild", "&Search=sild",
     "1", false},
    {"WithDoubleQuotesReplacedInValues", "", "Search:5\" <b>'x'</b> & \"",
     "Search:5&quot; <b>'x'</b> & &quot;", "&Search=5%22+%3Cb%3E%27x%27%3C%2Fb%3E+%26+%22"},
    {"WithDoubleQuotesReplacedInNames", "", "x\" onfocus=\"alert(1):1", "x&quot; onfocus=&quot;alert(1):1",
     "&x%22+onfocus%3D%22alert%281%29=1"},
    {"OncePerValueInOrder", "", "Color:red|Size:L|Color:blue", "Color:red|Size:L|Color:blue",
     "&Color=red&Size=L&Color=blue"},
    {"TwiceWhenTheyStandInBothCollections", "Search:old", "Search:new", "Search:old|Search:new",
     "&Search=old&Search=new"},
    {"EncodedInLinks", "na me&:O'Hara & \"Søn\"=+", "", "na me&:O'Hara & &quot;Søn&quot;=+",
     "&na+me%26=O%27Hara+%26+%22S%C3%B8n%22%3D%2B"},
    {"InLinksAsInInputs", "Search:sild|Morvu2PK:", "City:Bergen|Color:red|Color:blue|Morvu1PK:7",
     "Search:sild|Morvu2PK:|City:Bergen|Color:red|Color:blue",
     "&Search=sild&Morvu2PK=&City=Bergen&Color=red&Color=blue"},
    {"AsNothingWithoutFields", "", "", "", ""},
};

constexpr FieldsCase kKeys[] = {
    {"ButNeverTheKeysOfTheViewItself", "Morvu1PK:7",
     "Morvu1CurrRecord:21|Morvu1NEXT.x:3|Morvu1_Form_Name:x|Morvu1:y", "", ""},
    {"WithTheKeysOfOtherViews", "", "Morvu2CurrRecord:21|Morvu2NEXT.x:3",
     "Morvu2CurrRecord:21|Morvu2NEXT.x:3", "&Morvu2CurrRecord=21&Morvu2NEXT%2Ex=3"},
    {"WithoutTheKeysOfALongerTagWithTheSameFirstCharacter", "", "Morvu12CurrRecord:21", "", ""},
    {"WithItsOwnKeysWhenTheTagIsLong", "", "Morvu12CurrRecord:21|MorvuCurrRecord:41",
     "Morvu12CurrRecord:21|MorvuCurrRecord:41", "&Morvu12CurrRecord=21&MorvuCurrRecord=41", "12"},
    {"WithItsOwnKeysWhenTheTagIsEmpty", "", "Morvu12CurrRecord:21|MorvuCurrRecord:41",
     "Morvu12CurrRecord:21|MorvuCurrRecord:41", "&Morvu12CurrRecord=21&MorvuCurrRecord=41", ""},
    {"ComparedBySixCharactersAndNotBytes", "", "MorvuøPK:1|MorvuåPK:2", "MorvuåPK:2", "&Morvu%C3%A5PK=2",
     "ø"},
    {"ComparedInTheirExactLetterCase", "", "morvu1CurrRecord:21|MORVUaPK:1|MorvuAPK:2|MorvuaPK:3",
     "morvu1CurrRecord:21|MORVUaPK:1|MorvuAPK:2", "&morvu1CurrRecord=21&MORVUaPK=1&MorvuAPK=2", "a"},
};

INSTANTIATE_TEST_SUITE_P(Values, PageFields, testing::ValuesIn(kValues), tests::kByName);
INSTANTIATE_TEST_SUITE_P(Keys, PageFields, testing::ValuesIn(kKeys), tests::kByName);

class Command : public testing::TestWithParam<const char*> {};

TEST_P(Command, OfAnotherViewIsNeverGivenAgain) {
  const std::string command = std::string(GetParam()) + ":Save";
  const std::string form = command + "|City:Bergen";
  ExpectFields({"", command, form, "City:Bergen", "&City=Bergen"});
}

INSTANTIATE_TEST_SUITE_P(Keys, Command,
                         testing::Values("Morvu2FormUpdate", "Morvu2FormDelete", "MorvuordersFormUpdate",
                                         "MorvuFormDelete", "morvu2formupdate", "MORVU2FORMDELETE",
                                         "Morvu2ToExcel", "Morvu2ToExcel.x", "Morvu2ToExcel.y",
                                         "MorvuordersToExcel.x", "MorvuToExcel.y", "mORVU2TOEXCEL.X"));

constexpr FieldsCase kNoCommands[] = {
    {"WithoutThePrefixOrTheEndingOfACommand", "",
     "FormUpdate:1|myMorvu2FormDelete:2|Morvu2FormUpdates:3|Morvu:4|ToExcel.x:5|Morvu2ToExcel.z:6|"
     "Morvu2ToExcelx:7|.x:8",
     "FormUpdate:1|myMorvu2FormDelete:2|Morvu2FormUpdates:3|Morvu:4|ToExcel.x:5|Morvu2ToExcel.z:6|"
     "Morvu2ToExcelx:7|.x:8",
     "&FormUpdate=1&myMorvu2FormDelete=2&Morvu2FormUpdates=3&Morvu=4"
     "&ToExcel%2Ex=5&Morvu2ToExcel%2Ez=6&Morvu2ToExcelx=7&%2Ex=8"},
    {"OfALongTagButItsCommands", "", "Morvu12FormUpdate:Save|Morvu12FormEdit:Edit|Morvu12_Form_Name:x",
     "Morvu12FormEdit:Edit|Morvu12_Form_Name:x", "&Morvu12FormEdit=Edit&Morvu12%5FForm%5FName=x", "12"},
};

INSTANTIATE_TEST_SUITE_P(NoCommands, PageFields, testing::ValuesIn(kNoCommands), tests::kByName);

}  // namespace
}  // namespace dralo::state
