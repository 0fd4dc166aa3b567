#include <gtest/gtest.h>

#include <string>

#include "support/contains.h"
#include "unit/editing/saving.h"
#include "unit/editing/shared_form.h"

namespace dralo::tests {

namespace {

struct StaleForm : SharedForm {
  explicit StaleForm(bool is_hardened) {
    settings = {{"EditDetectConflicts", false}, {"Hardened", is_hardened}};
  }
};

/// A form that was opened before somebody else changed the record.
Form Stale(StaleForm& page, std::string_view button = "Morvu1FormUpdate") {
  const std::string form = page.Open();
  page.database.Run("UPDATE T SET Name='Zoe', City='Rome' WHERE ID=1");
  return Typed(form, {{"Stock", "7"}, {"City", "Bergen"}}, button);
}

TEST(StaleForm, OverwritesWithoutHardenedEvenWhatNobodyTouched) {
  StaleForm page(false);
  page.Page(Stale(page));
  EXPECT_EQ(Row(page.database, "ID=1", "Name,City,Stock"), "'Anna','Bergen',7");
}

TEST(StaleForm, OverwritesNothingWhenHardened) {
  StaleForm page(true);
  EXPECT_TRUE(Contains(page.Page(Stale(page)), "<span class=\"DraloNewerValue\">Rome</span>"));
  EXPECT_EQ(Row(page.database, "ID=1", "Name,City,Stock"), "'Zoe','Rome',3");
}

TEST(StaleForm, WithMadeUpDigestsOverwritesNothingWhenHardened) {
  StaleForm page(true);
  Form form = Stale(page);
  for (auto& field : form) {
    if (field.name.starts_with("Morvu1_Was_")) field.value = std::string(32, 'A');
  }
  page.Page(form);
  EXPECT_EQ(Row(page.database, "ID=1", "Name,City,Stock"), "'Zoe','Rome',3");
}

TEST(StaleForm, DeletesWithoutHardened) {
  StaleForm page(false);
  page.Page(Stale(page, "Morvu1FormDelete"));
  EXPECT_EQ(page.database.Value("SELECT count(*) FROM T"), "1");
}

TEST(StaleForm, AsksBeforeItDeletesWhenHardened) {
  StaleForm page(true);
  EXPECT_TRUE(Contains(page.Page(Stale(page, "Morvu1FormDelete")), "NOT DELETED"));
  EXPECT_EQ(page.database.Value("SELECT count(*) FROM T"), "2");
}

}  // namespace

}  // namespace dralo::tests
