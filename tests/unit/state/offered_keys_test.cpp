#include "state/offered_keys.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "support/fake_page.h"

namespace dralo::state {
namespace {

struct OfferedKeysOfAPage : testing::Test {
  tests::FakePage page;
  settings::Settings settings;

  OfferedKeysOfAPage() {
    settings.Hardened = true;
    for (const char* name : {"SQL", "CountRecords", "ToExcel.x", "LAST.x", "FormAdd", "FormEdit",
                             "FormUpdate", "FormDelete", "PK"}) {
      page.form.push_back({std::string("Morvu1") + name, "1"});
    }
  }

  RequestKeys Keys() const { return OfferedKeys(page.GetRequest(), settings, {}); }
  bool Has(std::string_view name) const { return Keys().Has(name); }
  bool IsPressed(std::string_view name) const { return Keys().WasPressed(name); }
};

TEST_F(OfferedKeysOfAPage, AreAllByDefault) {
  settings.Hardened = false;
  settings.DisplayExcelIcon = false;
  EXPECT_TRUE(Has(key::kSql) && Has(key::kCountRecords) && Has(key::kFormAdd) && Has(key::kFormDelete));
  EXPECT_TRUE(IsPressed(key::kToExcel) && IsPressed(key::kLast));
}

TEST_F(OfferedKeysOfAPage, NeverHaveAStatementOrACount) {
  EXPECT_FALSE(Has(key::kSql) || Has(key::kCountRecords));
  EXPECT_TRUE(Has(key::kPrimaryKey));
}

TEST_F(OfferedKeysOfAPage, HaveTheButtonsOfTheBar) {
  EXPECT_TRUE(IsPressed(key::kToExcel) && IsPressed(key::kLast));
  settings.bar = {};
  EXPECT_FALSE(IsPressed(key::kToExcel) || IsPressed(key::kLast));
  settings.bar = {.top = true};
  settings.DisplayExcelIcon = false;
  settings.DisableNavBarLastPageBtn = true;
  EXPECT_FALSE(IsPressed(key::kToExcel) || IsPressed(key::kLast));
}

TEST_F(OfferedKeysOfAPage, HaveTheLastPageWhereItIsKnown) {
  settings.CountRecords = false;
  EXPECT_FALSE(IsPressed(key::kLast));
  settings.RecordCount = 5;
  EXPECT_TRUE(IsPressed(key::kLast));
  settings.DisplayNavBarFirstLastBtn = false;
  EXPECT_FALSE(IsPressed(key::kLast));
}

TEST_F(OfferedKeysOfAPage, HaveWhatEditOptionsAllow) {
  for (const auto name : {key::kFormAdd, key::kFormEdit, key::kFormUpdate, key::kFormDelete}) {
    EXPECT_FALSE(Has(name)) << name;
  }
  settings.edit = {.add = true};
  EXPECT_TRUE(Has(key::kFormAdd) && Has(key::kFormUpdate));
  EXPECT_FALSE(Has(key::kFormEdit));
  settings.edit = {.update = true, .remove = true};
  EXPECT_TRUE(Has(key::kFormEdit) && Has(key::kFormUpdate));
  EXPECT_FALSE(Has(key::kFormAdd) || Has(key::kFormDelete)) << "nothing says how to delete";
  settings.DeleteSQL = "DELETE FROM T";
  EXPECT_TRUE(Has(key::kFormDelete));
}

TEST_F(OfferedKeysOfAPage, AreReadUntrimmedAndOnce) {
  page.form = {{"Morvu1PK", " a "}, {"morvu1FormUpdate", "1"}, {"Morvu1FORMUPDATE", "1"}};
  const RequestKeys keys = Keys();
  EXPECT_EQ(keys.Untrimmed(key::kPrimaryKey), " a ");
  EXPECT_EQ(keys.PostedOnce(key::kPrimaryKey), " a ");
  EXPECT_EQ(keys.PostedOnce(key::kFormUpdate), std::nullopt);
  EXPECT_EQ(keys.Untrimmed(key::kFormAdd), std::nullopt);
  page.query = std::exchange(page.form, {});
  EXPECT_EQ(Keys().Untrimmed(key::kPrimaryKey), " a ");
  EXPECT_EQ(Keys().PostedOnce(key::kPrimaryKey), std::nullopt);
}

}  // namespace
}  // namespace dralo::state
