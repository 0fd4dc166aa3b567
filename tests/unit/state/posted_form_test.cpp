#include "state/posted_form.h"

#include <gtest/gtest.h>

#include <string>

#include "support/fake_page.h"

namespace dralo::state {
namespace {

struct APostedForm : testing::Test {
  tests::FakePage page;
  platform::Site site;
  settings::Settings settings;

  APostedForm() { settings.Hardened = true; }

  PostedForm Judged() { return JudgePostedForm(page.GetRequest(), "1", site); }
  std::string Value(std::string_view name) {
    return std::string(KeysOfView(page.GetRequest(), settings, site).Value(name));
  }
};

TEST_F(APostedForm, IsTakenFromTheOwnSite) {
  page.form = {{"Morvu1FormUpdate", "Save"}, {"Morvu1_Form_ID", "5"}, {"Morvu1PK", "5"}};

  EXPECT_EQ(Judged(), PostedForm::kTaken);
  EXPECT_EQ(Value(key::kFormUpdate), "Save");
  EXPECT_EQ(Value("_Form_ID"), "5");
}

TEST_F(APostedForm, IsOneOnlyInABodyOfAPost) {
  page.form = {{"Morvu1FormDelete", "1"}};
  for (const char* method : {"GET", "HEAD", "PUT", "PATCH", "DELETE", "post"}) {
    page.method = method;
    EXPECT_EQ(Judged(), PostedForm::kNone) << method;
    EXPECT_EQ(Value(key::kFormDelete), "") << method;
  }
}

TEST_F(APostedForm, IsOneOnlyInTheTwoTypesOfForms) {
  page.form = {{"Morvu1FormDelete", "1"}};
  const auto judged = [&](std::vector<std::string> types) {
    page.headers = {{"Sec-Fetch-Site", "same-origin"}};
    for (std::string& type : types) page.headers.emplace_back("Content-Type", std::move(type));
    return Judged();
  };
  EXPECT_EQ(judged({"multipart/form-data; boundary=x"}), PostedForm::kTaken);
  EXPECT_EQ(judged({"Application/X-WWW-Form-urlencoded ; charset=utf-8"}), PostedForm::kTaken);
  EXPECT_EQ(judged({"text/plain"}), PostedForm::kNone);
  EXPECT_EQ(judged({"application/json"}), PostedForm::kNone);
  EXPECT_EQ(judged({"application/x-www-form-urlencodedx"}), PostedForm::kNone);
  EXPECT_EQ(judged({}), PostedForm::kNone);
  EXPECT_EQ(judged({"multipart/form-data", "multipart/form-data"}), PostedForm::kNone);
}

TEST_F(APostedForm, OfAnotherSiteHasNoKeysOfAChange) {
  page.form = {
      {"Morvu1FormUpdate", "1"}, {"Morvu1FormInsert", "1"}, {"Morvu1_Form_ID", "5"}, {"Morvu1PK", "6"}};
  page.headers.front().second = "cross-site";

  EXPECT_EQ(Judged(), PostedForm::kForeign);
  EXPECT_TRUE(CommandsChange(page.GetRequest(), "1"));
  for (const std::string_view name : {key::kFormUpdate, key::kFormInsert, std::string_view("_Form_ID")}) {
    EXPECT_EQ(Value(name), "") << name;
  }
  EXPECT_EQ(Value(key::kPrimaryKey), "6") << "which record is shown may be asked by anybody";
}

TEST_F(APostedForm, OfATrustedSiteIsTaken) {
  page.form = {{"Morvu1FormUpdate", "1"}};
  page.headers.front().second = "cross-site";
  page.headers.emplace_back("Origin", "https://partner.example");
  site.trusted_origins = {"https://partner.example"};

  EXPECT_EQ(Judged(), PostedForm::kTaken);
}

TEST_F(APostedForm, OfAnUnknownSenderKeepsItsKeysForTheFormThatComesBack) {
  page.form = {{"Morvu1FormUpdate", "1"}, {"Morvu1FormInsert", "1"}};
  page.headers.erase(page.headers.begin());

  EXPECT_EQ(Judged(), PostedForm::kUnknownSender);
  EXPECT_EQ(Value(key::kFormInsert), "1");
}

TEST_F(APostedForm, HasEachFieldOfAChangeOnce) {
  for (const char* name : {"morvu1_form_id", "Morvu1_FORM_ID", "Morvu1_Form_ID"}) {
    page.form = {{"Morvu1FormUpdate", "1"}, {"Morvu1_Form_ID", "5"}, {name, "6"}};
    EXPECT_EQ(Judged(), PostedForm::kRepeatedField) << name;
  }
  page.form = {{"Morvu1FormDelete", "1"}, {"Morvu1PK", "5"}, {"morvu1pk", "6"}};
  EXPECT_EQ(Judged(), PostedForm::kRepeatedField);
  page.form = {{"Morvu1FormDelete", "1"}, {"Morvu2PK", "5"},        {"Morvu1PK", "6"}, {"a", "1"}, {"a", "2"},
               {"Morvu1CurrRecord", "1"}, {"Morvu1CurrRecord", "2"}};
  EXPECT_EQ(Judged(), PostedForm::kTaken);
}

TEST_F(APostedForm, IsBounded) {
  page.form.assign(kMostFields, {"a", "1"});
  EXPECT_EQ(Judged(), PostedForm::kTaken);
  page.form.push_back({"Morvu1FormUpdate", "1"});
  EXPECT_EQ(Judged(), PostedForm::kTooLarge);
  EXPECT_EQ(Value(key::kFormUpdate), "");

  page.form = {{"a", std::string(kMostBytes, 'x')}};
  EXPECT_EQ(Judged(), PostedForm::kTooLarge);
}

TEST_F(APostedForm, IsTheOnlySourceOfAChange) {
  page.form = {{"Search", "x"}};
  page.query = {{"Morvu1FormDelete", "1"},
                {"Morvu1_Form_ID", "1"},
                {"Morvu1FormDeleteConfirmed", "1"},
                {"Morvu1Token", "t"},
                {"Morvu1PK", "7"}};

  for (const std::string_view name : {key::kFormDelete, std::string_view("_Form_ID"),
                                      std::string_view("FormDeleteConfirmed"), key::kToken}) {
    EXPECT_EQ(Value(name), "") << name;
  }
  EXPECT_EQ(Value(key::kPrimaryKey), "7") << "only shows a record";
  page.form = {{"Morvu1FormUpdate", "1"}};
  EXPECT_EQ(Value(key::kPrimaryKey), "") << "would say which record is written";
}

TEST_F(APostedForm, OfAPlainViewIsReadAsEver) {
  settings.Hardened = false;
  page.method = "GET";
  page.headers.clear();
  page.query = {{"Morvu1FormDelete", "1"}, {"Morvu1_Form_ID", "1"}};

  EXPECT_EQ(Value(key::kFormDelete), "1");
  EXPECT_EQ(Value("_Form_ID"), "1");
}

}  // namespace
}  // namespace dralo::state
