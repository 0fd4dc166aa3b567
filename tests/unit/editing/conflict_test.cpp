#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

#include "hosts/cpp/environment.h"
#include "support/contains.h"
#include "unit/editing/saving.h"
#include "unit/editing/shared_form.h"

namespace dralo::tests {

namespace {

constexpr std::string_view kSaved = "[Record saved ok]";
constexpr std::string_view kSeeFields = "Record WAS NOT SAVED. See the messages beside the fields.";

TEST(Conflict, FormsCarryADigestBesideEveryControl) {
  SharedForm shop;
  const std::string page = shop.Open();
  for (const char* field : {"ID", "Name", "City", "Stock", "Price", "Since", "Active", "Notes"}) {
    EXPECT_TRUE(Contains(page, "name=\"Morvu1_Was_" + std::string(field) + "\"")) << field;
  }
  EXPECT_EQ(shop.error, "");
}

TEST(Conflict, OnlyShownFieldsHaveADigest) {
  SharedForm shop(
      "CREATE TABLE T(ID INTEGER PRIMARY KEY, Name TEXT, Secret TEXT, Picture BLOB);"
      "INSERT INTO T VALUES(1, 'a', 'b', x'00')");
  shop.settings = {{"FormFieldsHide", std::string("Secret,ID")}};
  const std::string page = shop.Open();
  EXPECT_TRUE(Contains(page, "Morvu1_Was_Name"));
  for (const char* field : {"ID", "Secret", "Picture"}) {
    EXPECT_FALSE(Contains(page, "Morvu1_Was_" + std::string(field))) << field;
  }
}

TEST(Conflict, FormsOfNewRecordsAndOtherPagesCarryNone) {
  SharedForm shop;
  EXPECT_FALSE(Contains(shop.Page({{"Morvu1FormDisplay", "formOneRec"}, {"Morvu1FormAdd", "1"}}), "_Was_"));
  shop.settings = {{"EditDetectConflicts", false}};
  EXPECT_FALSE(Contains(shop.Open(), "_Was_"));
}

TEST(Conflict, HardenedPagesDetectThem) {
  SharedForm shop;
  shop.settings = {{"EditDetectConflicts", false}, {"Hardened", true}};
  EXPECT_TRUE(Contains(shop.Open(), "Morvu1_Was_Name"));
}

TEST(Conflict, UntouchedFieldsKeepWhatSomebodyElseStored) {
  SharedForm shop;
  const std::string form = shop.Open();
  shop.database.Run(
      "UPDATE T SET Name='Zoe', Stock=4, Price=2.51, Since=NULL, Active=0, Notes='newer' WHERE ID=1");
  EXPECT_TRUE(Contains(shop.Page(Typed(form, {{"City", "Bergen"}})), kSaved)) << shop.error;
  EXPECT_EQ(Row(shop.database), "1,'Zoe','Bergen',4,2.51,NULL,0,'newer'");
}

TEST(Conflict, ATouchedFieldThatSomebodyChangedIsNotWritten) {
  SharedForm shop;
  const std::string form = shop.Open();
  shop.database.Run("UPDATE T SET Name='<Zoe>' WHERE ID=1");
  const std::string page = shop.Page(Typed(form, {{"Name", "Eve"}, {"City", "Bergen"}}));
  EXPECT_TRUE(Contains(page, kSeeFields));
  EXPECT_TRUE(Contains(page, R"(value="Eve")"));
  EXPECT_TRUE(Contains(page, R"(value="Bergen")"));
  EXPECT_TRUE(Contains(
      page,
      R"(<br><span class="DraloFieldNote">Changed meanwhile to: <span class="DraloNewerValue">&lt;Zoe&gt;</span></span>)"));
  EXPECT_EQ(Row(shop.database, "ID=1", "Name,City"), "'<Zoe>','Oslo'");
  EXPECT_EQ(shop.error, "");
}

TEST(Conflict, AfterTheNewerValueWasShownTheTypedOneIsSaved) {
  SharedForm shop;
  const std::string form = shop.Open();
  shop.database.Run("UPDATE T SET Name='Zoe', Notes='newer' WHERE ID=1");
  const std::string page = shop.Page(Typed(form, {{"Name", "Eve"}}));
  EXPECT_TRUE(Contains(shop.Page(PostedByBrowser(page, "Morvu1FormUpdate")), kSaved));
  EXPECT_EQ(Row(shop.database, "ID=1", "Name,Notes"), "'Eve','newer'");
}

TEST(Conflict, AThirdVisitorIsSeenToo) {
  SharedForm shop;
  const std::string form = shop.Open();
  shop.database.Run("UPDATE T SET Name='Zoe' WHERE ID=1");
  const std::string page = shop.Page(Typed(form, {{"Name", "Eve"}}));
  shop.database.Run("UPDATE T SET Name='Max' WHERE ID=1");
  EXPECT_TRUE(Contains(shop.Page(PostedByBrowser(page, "Morvu1FormUpdate")), ">Max</span>"));
  EXPECT_EQ(Row(shop.database, "ID=1", "Name"), "'Max'");
}

TEST(Conflict, WhatStandsThereAlreadyIsNone) {
  SharedForm shop;
  const std::string form = shop.Open();
  shop.database.Run("UPDATE T SET Name='Eve', Active=0 WHERE ID=1");
  EXPECT_TRUE(Contains(shop.Page(Typed(form, {{"Name", "Eve"}, {"Active", ""}})), kSaved)) << shop.error;
}

TEST(Conflict, ChangesThatNoControlShowsAreSeen) {
  SharedForm shop(
      "CREATE TABLE T(ID INTEGER PRIMARY KEY, V DATETIME); INSERT INTO T VALUES(1,'2024-05-03 07:00:00.25')");
  const std::string form = shop.Open();
  shop.database.Run("UPDATE T SET V='2024-05-03 07:00:00.75'");
  EXPECT_TRUE(Contains(shop.Page(Typed(form, {{"V", "5/4/2024"}})), kSeeFields));
  EXPECT_EQ(shop.database.Value("SELECT V FROM T"), "2024-05-03 07:00:00.75");
}

TEST(Conflict, AMissingOrBrokenDigestIsOne) {
  for (const std::string_view digest : {"", "x", "AAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA"}) {
    SharedForm shop;
    Form form = Typed(shop.Open(), {{"Name", "Eve"}});
    std::erase_if(form, [](const auto& field) { return field.name == "Morvu1_Was_Name"; });
    if (!digest.empty()) form.push_back({"Morvu1_Was_Name", std::string(digest)});
    EXPECT_TRUE(
        Contains(shop.Page(form), "Changed meanwhile to: <span class=\"DraloNewerValue\">Anna</span>"));
    EXPECT_EQ(Row(shop.database), kAnna);
  }
}

TEST(Conflict, ADigestOfAnotherRecordIsOne) {
  SharedForm shop;
  shop.database.Run("UPDATE T SET Name='Anna' WHERE ID=2");
  const Form other = Typed(shop.Open("2"), {});
  Form form = Typed(shop.Open("1"), {{"Name", "Eve"}});
  for (auto& field : form) {
    if (field.name == "Morvu1_Was_Name") {
      field.value = std::ranges::find(other, field.name, &platform::RequestField::name)->value;
    }
  }
  EXPECT_TRUE(Contains(shop.Page(form), kSeeFields));
  EXPECT_EQ(Row(shop.database), kAnna);
}

TEST(Conflict, ARefusalForAnotherReasonGivesTheDigestsBack) {
  SharedForm shop;
  const std::string form = shop.Open();
  shop.database.Run("UPDATE T SET Notes='newer' WHERE ID=1");
  const std::string page = shop.Page(Typed(form, {{"Stock", "many"}, {"City", "  Bergen "}}));
  EXPECT_TRUE(Contains(page, "This is not a number."));
  EXPECT_TRUE(Contains(page, R"(value="  Bergen ")"));
  EXPECT_TRUE(Contains(shop.Page(Typed(page, {{"Stock", "5"}})), kSaved)) << shop.error;
  EXPECT_EQ(Row(shop.database, "ID=1", "City,Stock,Notes"), "'  Bergen ',5,'newer'");
}

TEST(Conflict, AllRefusalsStandAtOnce) {
  SharedForm shop;
  const std::string form = shop.Open();
  shop.database.Run("UPDATE T SET City='Rome' WHERE ID=1");
  const std::string page =
      shop.Page(Typed(form, {{"Name", ""}, {"City", "Bergen"}, {"Stock", "x"}, {"Since", "y"}}));
  for (const char* text :
       {"Fill in this field.", ">Rome<", "This is not a number.", "This is not a valid date."}) {
    EXPECT_TRUE(Contains(page, text)) << text;
  }
}

TEST(Conflict, ANullBooleanStaysOneUnlessItsTickIsChanged) {
  SharedForm shop;
  shop.database.Run("UPDATE T SET Active=NULL WHERE ID=1");
  shop.Page(Typed(shop.Open(), {{"City", "Bergen"}}));
  EXPECT_EQ(Row(shop.database, "ID=1", "City,Active"), "'Bergen',NULL");
  shop.Page(Typed(shop.Open(), {{"Active", "on"}}));
  EXPECT_EQ(Row(shop.database, "ID=1", "Active"), "1");
  shop.Page(Typed(shop.Open(), {{"Active", ""}}));
  EXPECT_EQ(Row(shop.database, "ID=1", "Active"), "0");
}

TEST(Conflict, AnInputThatGotLostIsNoChange) {
  SharedForm shop;
  Form form = Typed(shop.Open(), {{"City", "Bergen"}});
  std::erase_if(form, [](const auto& field) { return field.name.ends_with("_Notes"); });
  EXPECT_TRUE(Contains(shop.Page(form), kSaved));
  EXPECT_EQ(Row(shop.database, "ID=1", "City,Notes"), "'Bergen','first'");
}

Form Deleting(std::string_view page) { return Typed(page, {}, "Morvu1FormDelete"); }

TEST(Conflict, ADeleteOfARecordThatChangedAsksAgainAndShowsIt) {
  for (const char* change : {"Name='Zoe'", "Notes=NULL", "Active=NULL"}) {
    SharedForm shop;
    shop.settings = {{"EditFieldsReadOnly", std::string("Notes")}};
    const std::string form = shop.Open();
    shop.database.Run("UPDATE T SET " + std::string(change) + " WHERE ID=1");
    const std::string page = shop.Page(Deleting(form));
    EXPECT_TRUE(Contains(page, "NOT DELETED")) << change;
    EXPECT_EQ(shop.database.Value("SELECT count(*) FROM T"), "2") << change;
    shop.Page(Deleting(page));
    EXPECT_EQ(shop.database.Value("SELECT count(*) FROM T"), "1") << change << shop.error;
  }
}

TEST(Conflict, AFormThatComesBackFromADeleteShowsWhatIsStored) {
  SharedForm shop;
  const std::string form = shop.Open();
  shop.database.Run("UPDATE T SET Name='Zoe' WHERE ID=1");
  const std::string page = shop.Page(Typed(form, {{"City", "Bergen"}}, "Morvu1FormDelete"));
  EXPECT_TRUE(Contains(page, R"(value="Zoe")"));
  EXPECT_FALSE(Contains(page, "Bergen"));
  EXPECT_TRUE(Contains(shop.Page(Typed(page, {{"City", "Rome"}})), kSaved));
  EXPECT_EQ(Row(shop.database, "ID=1", "Name,City"), "'Zoe','Rome'");
}

TEST(Conflict, ADeleteOfAnUnchangedRecordIsDone) {
  SharedForm shop;
  EXPECT_TRUE(Contains(shop.Page(Deleting(shop.Open())), "[Record deleted]")) << shop.error;
  EXPECT_EQ(shop.database.Value("SELECT count(*) FROM T"), "1");
}

TEST(Conflict, ADeleteWithoutDigestsAsks) {
  SharedForm shop;
  Form form = Deleting(shop.Open());
  std::erase_if(form, [](const auto& field) { return field.name.starts_with("Morvu1_Was_"); });
  shop.Page(form);
  EXPECT_EQ(shop.database.Value("SELECT count(*) FROM T"), "2");
}

TEST(Conflict, TheLanguageOfThePageDoesNotMatter) {
  static host::Environment german("de-DE");
  SharedForm shop;
  const std::string form = shop.Open();
  EXPECT_TRUE(Contains(shop.Page(Typed(form, {{"Name", "Eve"}}), german), kSaved)) << shop.error;
}

}  // namespace

}  // namespace dralo::tests
