#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "settings/language.h"
#include "settings/setters.h"
#include "unit/views/form_page.h"
#include "unit/views/grid_page.h"

namespace dralo::tests {
namespace {

/// A one-record view whose records can be changed.
struct ButtonsPage : FormPage {
  ButtonsPage() {
    settings::SetEditOptions(settings, "UPDATE");
    settings.EditPrimaryKeys = "ID";
  }

  /// The first row of buttons.
  std::string Bar(platform::Recordset& records) {
    const std::string form = Form(records);
    const std::size_t start = form.find("<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>");
    const std::string_view end = "</table></td></tr>\r\n";
    if (start == form.npos) return "(no bar)";
    return form.substr(start, form.find(end, start) + end.size() - start);
  }

  /// What the first Edit button writes into the input for keys, as it stands in the page.
  std::string KeyInScript(platform::Recordset& records) {
    const std::string bar = Bar(records);
    const std::string_view start = "onclick=\"FormDraloGrid1.Morvu1PK.value='";
    const std::size_t at = bar.find(start);
    if (at == bar.npos) return "(no button)";
    const std::size_t from = at + start.size();
    return bar.substr(from, bar.find("'\"  value=", from) - from);
  }
};

TEST(FormGridButtons, StandBetweenTheInputForKeysAndTheFields) {
  ButtonsPage page;
  page.settings.FormFieldsShow = "ID";
  const Records people(kPeople);

  EXPECT_EQ(page.Form(*people),
            "<input type=\"hidden\" name=\"Morvu1PK\" value=''>\r\n"
            "<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n"
            "<tr><td colspan=2 class=\"DraloEditBtnBar\">"
            "<input class=\"DraloInputBtn\" type=\"submit\" name=\"Morvu1FormEdit\"  "
            "onclick=\"FormDraloGrid1.Morvu1PK.value='7'\"  value=\"Edit\">"
            "</td></tr>\r\n</table></td></tr>\r\n"
            "<tr><td><table width=\"100%\" class=\"DRLOTableFormDataView\">\r\n"
            "<tr class=\"DRLOTableTR\"><th align=left>ID</th><td>7</td></tr>\r\n"
            "</table></td></tr>\r\n");
}

TEST(FormGridButtons, HaveNoClassesWithoutCss) {
  ButtonsPage page;
  page.settings.UseCSS = false;
  settings::SetEditOptions(page.settings, "ADD UPDATE");
  const Records people(kPeople);

  EXPECT_EQ(page.Bar(*people),
            "<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n"
            "<tr><td colspan=2>"
            "<input type=\"submit\" name=\"Morvu1FormEdit\"  "
            "onclick=\"FormDraloGrid1.Morvu1PK.value='7'\"  value=\"Edit\">"
            "&nbsp;<input type=\"submit\" name=\"Morvu1FormAdd\" value=\"Add\">"
            "</td></tr>\r\n</table></td></tr>\r\n");
}

TEST(FormGridButtons, OfferToAddWhenThePageAllowsIt) {
  ButtonsPage page;
  settings::SetEditOptions(page.settings, "ADD UPDATE DELETE");
  const Records people(kPeople);

  EXPECT_EQ(page.Bar(*people),
            "<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n"
            "<tr><td colspan=2 class=\"DraloEditBtnBar\">"
            "<input class=\"DraloInputBtn\" type=\"submit\" name=\"Morvu1FormEdit\"  "
            "onclick=\"FormDraloGrid1.Morvu1PK.value='7'\"  value=\"Edit\">"
            "&nbsp;<input class=\"DraloInputBtn\" type=\"submit\" name=\"Morvu1FormAdd\" value=\"Add\">"
            "</td></tr>\r\n</table></td></tr>\r\n");
}

TEST(FormGridButtons, AreAllMissingWithoutThePermissionToUpdate) {
  ButtonsPage page;
  page.outcome.status_message = "&nbsp;[Record saved ok]";
  for (const char* options : {"", "ADD", "ADD DELETE"}) {
    settings::SetEditOptions(page.settings, options);
    const Records people(kPeople);

    EXPECT_EQ(page.Bar(*people), "(no bar)") << options;
    EXPECT_EQ(page.settings.ErrorMessage, "") << options;
  }
}

TEST(FormGridButtons, HaveTheCaptionsOfTheView) {
  ButtonsPage page;
  settings::SetEditOptions(page.settings, "ADD UPDATE");
  auto texts = std::make_shared<settings::LanguageTables>(*page.settings.language_tables);
  texts->buttons = {"Modifier", "Enregistrer", "Fermer", "Ajouter", "Effacer"};
  page.settings.language_tables = texts;
  const Records people(kPeople);

  const std::string bar = page.Bar(*people);

  EXPECT_TRUE(Contains(bar, "'7'\"  value=\"Modifier\">")) << bar;
  EXPECT_TRUE(Contains(bar, "name=\"Morvu1FormAdd\" value=\"Ajouter\">")) << bar;
}

TEST(FormGridButtons, BearTheTagOfTheirView) {
  ButtonsPage page;
  page.settings.Tag = "2";
  settings::SetEditOptions(page.settings, "ADD UPDATE");
  const Records people(kPeople);

  const std::string bar = page.Bar(*people);

  EXPECT_TRUE(Contains(
      bar, "name=\"Morvu2FormEdit\"  onclick=\"FormDraloGrid2.Morvu2PK.value='7'\"  value=\"Edit\">"));
  EXPECT_TRUE(Contains(bar, "name=\"Morvu2FormAdd\" value=\"Add\">"));
}

TEST(FormGridButtons, StandAboveEveryRecordWithItsOwnKey) {
  ButtonsPage page;
  page.records_on_page = 3;
  const Records people(kPeople);

  const std::string form = page.Form(*people);

  EXPECT_EQ(CountOf("DraloEditBtnBar", form), 3);
  for (const char* key : {"'7'", "'8'", "'9'"}) {
    EXPECT_EQ(CountOf(std::string("Morvu1PK.value=") + key + "\"", form), 1) << key;
  }
}

TEST(FormGridButtons, StandBehindTheGapBeforeTheirRecord) {
  ButtonsPage page;
  page.records_on_page = 2;
  const Records people(kPeople);

  EXPECT_TRUE(Contains(page.Form(*people),
                       "<td class=\"DRLOTableTDFormGap\">&nbsp;</td></tr>\r\n"
                       "<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n"));
}

TEST(FormGridButtons, JoinSeveralKeysInTheOrderOfTheirList) {
  ButtonsPage page;
  page.settings.EditPrimaryKeys = "Name, ID";
  const Records people(kPeople);

  EXPECT_EQ(page.KeyInScript(*people), "Ann,7");
}

TEST(FormGridButtons, WriteKeysAsTextsOfAScriptAndNotEncodedForAddresses) {
  ButtonsPage page;
  page.settings.EditPrimaryKeys = "K";
  const auto key = [&](std::string_view value) {
    const Records records("CREATE TABLE T (K VARCHAR(40)); INSERT INTO T VALUES (" + std::string(value) +
                          ")");
    return page.KeyInScript(*records);
  };

  EXPECT_EQ(key("'O''Neil & Söhne, 50%'"), R"(O\'Neil & Söhne, 50%)");
  EXPECT_EQ(key(R"('a\b')"), R"(a\\b)");
  EXPECT_EQ(key(R"('12" disk')"), "12&quot; disk");
  EXPECT_EQ(key("' x '"), " x ");
}

TEST(FormGridButtons, PostAnEmptyKeyWithoutKeysAndWithoutAnInputForThem) {
  ButtonsPage page;
  page.settings.EditPrimaryKeys = "";
  const Records people(kPeople);

  EXPECT_EQ(page.KeyInScript(*people), "");
  EXPECT_EQ(page.settings.ErrorMessage, "");

  const Records again(kPeople);
  EXPECT_FALSE(Contains(page.Form(*again), "type=\"hidden\""));
}

TEST(FormGridButtons, PostAnEmptyKeyAndSaySoWhenAKeyIsNoField) {
  ButtonsPage page;
  page.settings.EditPrimaryKeys = "ID,Nobody";
  const Records people(kPeople);

  EXPECT_EQ(page.KeyInScript(*people), "");
  EXPECT_TRUE(page.settings.ErrorMessage.ends_with(", when trying to construct a Primary Key URL link<br>"))
      << page.settings.ErrorMessage;
  EXPECT_EQ(page.rows, 1);
}

TEST(FormGridButtons, TellTheOutcomeOfASaveOnceBehindTheButtonsOfTheFirstRecord) {
  ButtonsPage page;
  page.records_on_page = 3;
  settings::SetEditOptions(page.settings, "ADD UPDATE");
  page.outcome.status_message = "&nbsp;[Record saved ok]";
  const Records people(kPeople);
  const Records again(kPeople);

  EXPECT_TRUE(page.Bar(*people).ends_with(
      "name=\"Morvu1FormAdd\" value=\"Add\">&nbsp;[Record saved ok]</td></tr>\r\n</table></td></tr>\r\n"));
  EXPECT_EQ(CountOf("[Record saved ok]", page.Form(*again)), 1);
}

TEST(FormGridButtons, OfferToAddAndTellTheOutcomeWhenThereIsNoRecord) {
  ButtonsPage page;
  settings::SetEditOptions(page.settings, "ADD UPDATE DELETE");
  page.outcome.status_message = "&nbsp;[Record deleted ok]";
  const Records nobody(kPeople, "SELECT * FROM T WHERE ID = 0");

  EXPECT_EQ(page.Form(*nobody),
            "<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n"
            "<tr><td colspan=2 class=\"DraloEditBtnBar\">"
            "&nbsp;<input class=\"DraloInputBtn\" type=\"submit\" name=\"Morvu1FormAdd\" value=\"Add\">"
            "&nbsp;[Record deleted ok]</td></tr>\r\n</table></td></tr>\r\n");
  EXPECT_EQ(page.rows, 0);
}

TEST(FormGridButtons, TellTheOutcomeAloneWhenThereIsNoRecordAndNoneCanBeAdded) {
  ButtonsPage page;
  page.settings.UseCSS = false;
  page.outcome.status_message = "&nbsp;[Record deleted ok]";
  const Records nobody(kPeople, "SELECT * FROM T WHERE ID = 0");

  EXPECT_EQ(page.Form(*nobody),
            "<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n"
            "<tr><td colspan=2>&nbsp;[Record deleted ok]</td></tr>\r\n</table></td></tr>\r\n");
}

TEST(FormGridButtons, AreMissingWithoutARecordAndWithoutThePermissionToUpdate) {
  ButtonsPage page;
  settings::SetEditOptions(page.settings, "ADD");
  page.outcome.status_message = "&nbsp;[Record deleted ok]";
  const Records nobody(kPeople, "SELECT * FROM T WHERE ID = 0");

  EXPECT_EQ(page.Form(*nobody), "");
}

}  // namespace
}  // namespace dralo::tests
