#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "settings/language.h"
#include "settings/setters.h"
#include "support/expect_html.h"
#include "unit/views/form_page.h"

namespace dralo::tests {
namespace {

constexpr std::string_view kBarStart = "<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n";
constexpr std::string_view kBarEnd = "</td></tr>\r\n</table></td></tr>\r\n";
constexpr std::string_view kEditButton =
    "<input class=\"DraloInputBtn\" type=\"submit\" name=\"Morvu1FormEdit\"  "
    "onclick=\"FormDraloGrid1.Morvu1PK.value='7'\"  value=\"Edit\">";
constexpr std::string_view kAddButton =
    "&nbsp;<input class=\"DraloInputBtn\" type=\"submit\" name=\"Morvu1FormAdd\" value=\"Add\">";

/// The row of buttons that has these and what stands behind them.
std::string BarOf(std::string_view buttons, std::string_view more = "") {
  std::string bar(kBarStart);
  bar.append("<tr><td colspan=2 class=\"DraloEditBtnBar\">").append(buttons).append(more).append(kBarEnd);
  return bar;
}

/// A one-record view whose records can be changed.
struct FormGridButtons : FormPage {
  FormGridButtons() {
    settings::SetEditOptions(settings, "UPDATE");
    settings.EditPrimaryKeys = "ID";
  }

  /// The first row of buttons.
  static std::string BarIn(const std::string& form) {
    const std::size_t start = form.find(kBarStart);
    if (start == form.npos) return "(no bar)";
    return form.substr(start, form.find(kBarEnd, start) + kBarEnd.size() - start);
  }
  std::string Bar() { return BarIn(Form()); }

  /// What the first Edit button writes into the input for keys, as it stands in the page.
  static std::string KeyInScript(const std::string& form) {
    const std::string bar = BarIn(form);
    const std::string_view start = "onclick=\"FormDraloGrid1.Morvu1PK.value='";
    const std::size_t at = bar.find(start);
    if (at == bar.npos) return "(no button)";
    const std::size_t from = at + start.size();
    return bar.substr(from, bar.find("'\"  value=", from) - from);
  }
};

TEST_F(FormGridButtons, StandBetweenTheInputForKeysAndTheFields) {
  settings.FormFieldsShow = "ID";

  EXPECT_HTML(Form(),
              "<input type=\"hidden\" name=\"Morvu1PK\" value=''>\r\n" + BarOf(kEditButton) + Lines(R"(
      <tr><td><table width="100%" class="DRLOTableFormDataView">
      <tr class="DRLOTableTR"><th align=left>ID</th><td>7</td></tr>
      </table></td></tr>
      )"));
}

TEST_F(FormGridButtons, HaveNoClassesWithoutCss) {
  settings.UseCSS = false;
  settings::SetEditOptions(settings, "ADD UPDATE");

  EXPECT_EQ(Bar(),
            "<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n"
            "<tr><td colspan=2>"
            "<input type=\"submit\" name=\"Morvu1FormEdit\"  "
            "onclick=\"FormDraloGrid1.Morvu1PK.value='7'\"  value=\"Edit\">"
            "&nbsp;<input type=\"submit\" name=\"Morvu1FormAdd\" value=\"Add\">"
            "</td></tr>\r\n</table></td></tr>\r\n");
}

TEST_F(FormGridButtons, OfferToAddWhenThePageAllowsIt) {
  settings::SetEditOptions(settings, "ADD UPDATE DELETE");

  EXPECT_EQ(Bar(), BarOf(kEditButton, kAddButton));
}

TEST_F(FormGridButtons, AreAllMissingWithoutThePermissionToUpdate) {
  outcome.status_message = "&nbsp;[Record saved ok]";
  for (const char* options : {"", "ADD", "ADD DELETE"}) {
    settings::SetEditOptions(settings, options);

    EXPECT_EQ(Bar(), "(no bar)") << options;
    EXPECT_EQ(settings.ErrorMessage, "") << options;
  }
}

TEST_F(FormGridButtons, HaveTheCaptionsOfTheView) {
  settings::SetEditOptions(settings, "ADD UPDATE");
  auto texts = std::make_shared<settings::LanguageTables>(*settings.language_tables);
  texts->buttons = {"Modifier", "Enregistrer", "Fermer", "Ajouter", "Effacer"};
  settings.language_tables = texts;

  const std::string bar = Bar();

  EXPECT_TRUE(Contains(bar, "'7'\"  value=\"Modifier\">")) << bar;
  EXPECT_TRUE(Contains(bar, "name=\"Morvu1FormAdd\" value=\"Ajouter\">")) << bar;
}

TEST_F(FormGridButtons, BearTheTagOfTheirView) {
  settings.Tag = "2";
  settings::SetEditOptions(settings, "ADD UPDATE");

  const std::string bar = Bar();

  EXPECT_TRUE(Contains(
      bar, "name=\"Morvu2FormEdit\"  onclick=\"FormDraloGrid2.Morvu2PK.value='7'\"  value=\"Edit\">"));
  EXPECT_TRUE(Contains(bar, "name=\"Morvu2FormAdd\" value=\"Add\">"));
}

TEST_F(FormGridButtons, StandAboveEveryRecordWithItsOwnKey) {
  records_on_page = 3;

  const std::string form = Form();

  EXPECT_EQ(CountOf("DraloEditBtnBar", form), 3);
  for (const char* key : {"'7'", "'8'", "'9'"}) {
    EXPECT_EQ(CountOf(std::string("Morvu1PK.value=") + key + "\"", form), 1) << key;
  }
}

TEST_F(FormGridButtons, StandBehindTheGapBeforeTheirRecord) {
  records_on_page = 2;

  EXPECT_TRUE(Contains(Form(),
                       "<td class=\"DRLOTableTDFormGap\">&nbsp;</td></tr>\r\n"
                       "<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n"));
}

TEST_F(FormGridButtons, JoinSeveralKeysInTheOrderOfTheirList) {
  settings.EditPrimaryKeys = "Name, ID";

  EXPECT_EQ(KeyInScript(Form()), "Ann,7");
}

TEST_F(FormGridButtons, WriteKeysAsTextsOfAScriptAndNotEncodedForAddresses) {
  settings.EditPrimaryKeys = "K";
  const auto key = [&](std::string_view value) {
    const Records records("CREATE TABLE T (K VARCHAR(40)); INSERT INTO T VALUES (" + std::string(value) +
                          ")");
    return KeyInScript(Form(*records));
  };

  EXPECT_EQ(key("'O''Neil & Söhne, 50%'"), R"(O\'Neil & Söhne, 50%)");
  EXPECT_EQ(key(R"('a\b')"), R"(a\\b)");
  EXPECT_EQ(key(R"('12" disk')"), "12&quot; disk");
  EXPECT_EQ(key("' x '"), " x ");
}

TEST_F(FormGridButtons, PostAnEmptyKeyWithoutKeysAndWithoutAnInputForThem) {
  settings.EditPrimaryKeys = "";

  const std::string form = Form();

  EXPECT_EQ(KeyInScript(form), "");
  EXPECT_EQ(settings.ErrorMessage, "");
  EXPECT_FALSE(Contains(form, "type=\"hidden\""));
}

TEST_F(FormGridButtons, PostAnEmptyKeyAndSaySoWhenAKeyIsNoField) {
  settings.EditPrimaryKeys = "ID,Nobody";

  EXPECT_EQ(KeyInScript(Form()), "");
  EXPECT_TRUE(settings.ErrorMessage.ends_with(", when trying to construct a Primary Key URL link<br>"))
      << settings.ErrorMessage;
  EXPECT_EQ(rows, 1);
}

TEST_F(FormGridButtons, TellTheOutcomeOfASaveOnceBehindTheButtonsOfTheFirstRecord) {
  records_on_page = 3;
  settings::SetEditOptions(settings, "ADD UPDATE");
  outcome.status_message = "&nbsp;[Record saved ok]";

  const std::string form = Form();

  EXPECT_EQ(BarIn(form), BarOf(kEditButton, std::string(kAddButton) + "&nbsp;[Record saved ok]"));
  EXPECT_EQ(CountOf("[Record saved ok]", form), 1);
}

TEST_F(FormGridButtons, OfferToAddAndTellTheOutcomeWhenThereIsNoRecord) {
  settings::SetEditOptions(settings, "ADD UPDATE DELETE");
  outcome.status_message = "&nbsp;[Record deleted ok]";

  EXPECT_EQ(FormOfNobody(), BarOf(kAddButton, "&nbsp;[Record deleted ok]"));
  EXPECT_EQ(rows, 0);
}

TEST_F(FormGridButtons, TellTheOutcomeAloneWhenThereIsNoRecordAndNoneCanBeAdded) {
  settings.UseCSS = false;
  outcome.status_message = "&nbsp;[Record deleted ok]";

  EXPECT_EQ(FormOfNobody(),
            "<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n"
            "<tr><td colspan=2>&nbsp;[Record deleted ok]</td></tr>\r\n</table></td></tr>\r\n");
}

TEST_F(FormGridButtons, AreMissingWithoutARecordAndWithoutThePermissionToUpdate) {
  settings::SetEditOptions(settings, "ADD");
  outcome.status_message = "&nbsp;[Record deleted ok]";

  EXPECT_EQ(FormOfNobody(), "");
}

}  // namespace
}  // namespace dralo::tests
