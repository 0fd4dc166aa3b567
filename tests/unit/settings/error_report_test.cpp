#include "settings/error_report.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "settings/own_errors.h"

namespace dralo::settings {
namespace {

struct AHardenedReport : testing::Test {
  std::string message;
  std::string detail;
  ErrorReport report{message, detail};
};

TEST_F(AHardenedReport, TellsThePublicANumberedTextAndKeepsTheRest) {
  report.Add("no such table: Secrets", "MakeDataGrid");

  EXPECT_EQ(message, "Message 1: A part of this page could not be made.<br>");
  EXPECT_EQ(detail,
            "Message 1: A part of this page could not be made. no such table: Secrets in MakeDataGrid\n");
}

TEST_F(AHardenedReport, KeepsStatementsWhetherThePageDebugsOrNot) {
  report.AddStatement("syntax error", "WriteHTMLTable", "SELECT\n1", false);
  report.AddNewKeyFailure("no row", "SELECT max(ID)", false);

  EXPECT_EQ(message,
            "Message 2: The request could not be carried out.<br>"
            "Message 5: There is no key for the new record.<br>");
  EXPECT_EQ(detail,
            "Message 2: The request could not be carried out. syntax error in WriteHTMLTable. "
            "sql='SELECT\\x0A1'\n"
            "Message 5: There is no key for the new record. no row in GetNewPKValue. sql='SELECT max(ID)'\n");
}

TEST_F(AHardenedReport, SaysEachThingOnce) {
  report.AddFormattingFailure("a");
  report.AddFormattingFailure("b");
  report.AddFormattingFailure("a");

  EXPECT_EQ(message, "Message 10: A value could not be formatted.<br>");
  EXPECT_EQ(std::ranges::count(detail, '\n'), 2);
}

TEST_F(AHardenedReport, IsBounded) {
  for (int i = 0; i < 2'000; ++i) report.AddUpdateFailure(std::to_string(i) + std::string(100, 'x'));

  EXPECT_LE(detail.size(), ErrorReport::kMostDetailBytes);
  EXPECT_GT(detail.size(), ErrorReport::kMostDetailBytes - 200);
}

TEST_F(AHardenedReport, HasNothingOfTheFailureInThePublicTexts) {
  report.AddMissingKeys();
  report.AddKeyLinkFailure("<secret>");
  report.AddLookupFailure("<secret>", "<secret>");
  report.AddOpeningFailure("<secret>", "<secret>");
  report.AddAddNewFailure("<secret>");
  report.AddUpdateFailure("<secret>");
  report.AddShortTextList("<secret>", 1, "3");
  report.AddPublic(PublicText::kDelete, "<secret>");

  EXPECT_EQ(message.find("secret"), message.npos);
  EXPECT_EQ(std::ranges::count(detail, '\n'), 8);
  EXPECT_EQ(std::ranges::count(message, '<'), 8) << "one <br> each";
}

TEST_F(AHardenedReport, TakesOverWhatAnotherHasSaidOnce) {
  report.AddAll("Message 9: x<br>", "Message 9: x y\n");
  report.AddAll("Message 9: x<br>", "Message 9: x y\n");

  EXPECT_EQ(message, "Message 9: x<br>");
  EXPECT_EQ(detail, "Message 9: x y\n");
}

TEST(ErrorReport, OfAPlainViewIsWrittenAsItIs) {
  std::string message;
  ErrorReport report(message);
  report.AddUpdateFailure("a");
  report.AddUpdateFailure("a");
  report.AddStatement("b", "R", "S", true);
  report.AddAll("c", "d");

  EXPECT_EQ(message, "Update failed: a<br>Update failed: a<br>b in R.<br>sql='S'<br>c");
}

TEST(OwnErrors, GoWhereTheViewHasThem) {
  Settings settings;
  OwnErrors(settings).AddMissingKeys();
  EXPECT_EQ(settings.ErrorMessage, "Dralo property EditPrimaryKeys must be set!<br>");
  EXPECT_EQ(settings.ErrorDetail, "");

  settings = {};
  settings.Hardened = true;
  OwnErrors(settings).AddMissingKeys();
  EXPECT_EQ(settings.ErrorMessage, NumberedText(PublicText::kMissingKeys) + "<br>");
  EXPECT_NE(settings.ErrorDetail.find("EditPrimaryKeys must be set!"), std::string::npos);
}

}  // namespace
}  // namespace dralo::settings
