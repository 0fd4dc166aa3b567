#include "settings/lookup_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/view_page.h"

namespace dralo::tests {
namespace {

using settings::LookupList;
using testing::ElementsAre;

LookupList::Lookup LookupOf(std::string_view field, std::string_view table) {
  return {.field_name = field, .table = table, .link_field = "ID", .display_field = "Name", .order_by = ""};
}

struct Lookups : testing::Test {
  LookupList lookups;
};

TEST_F(Lookups, KeepsALookupAsOneText) {
  lookups.Add({"CustomerID", "Customers", "ID", "Name", "Name", true});
  EXPECT_EQ(lookups.Find("CustomerID"), "CustomerID,Customers,ID,Name,Name,1");
  lookups.Add({"CityID", "Cities", "ID", "City", "", false});
  EXPECT_EQ(lookups.Find("CityID"), "CityID,Cities,ID,City,,0");
}

TEST_F(Lookups, GrowsByTwoEntriesOfWhichTheSecondStaysEmpty) {
  EXPECT_EQ(lookups.UpperBound(), -1);
  lookups.Add(LookupOf("A", "T"));
  EXPECT_EQ(lookups.UpperBound(), 1);
  lookups.Add(LookupOf("B", "T"));
  EXPECT_EQ(lookups.UpperBound(), 3);
  lookups.Add(LookupOf("C", "T"));
  EXPECT_EQ(lookups.UpperBound(), 5);
  EXPECT_THAT(lookups.Entries(),
              ElementsAre("A,T,ID,Name,,0", "", "B,T,ID,Name,,0", "", "C,T,ID,Name,,0", ""));
}

TEST_F(Lookups, FindsFieldsInAnyLetterCase) {
  lookups.Add(LookupOf("CustomerID", "Customers"));
  EXPECT_EQ(lookups.Find("customerid"), "CustomerID,Customers,ID,Name,,0");
  EXPECT_EQ(lookups.Find("Customer"), "");
  EXPECT_EQ(lookups.Find("CustomerID,Customers"), "");
}

TEST_F(Lookups, LetsTheFirstOfTwoLookupsOfAFieldWin) {
  lookups.Add(LookupOf("CustomerID", "First"));
  lookups.Add(LookupOf("CUSTOMERID", "Second"));
  EXPECT_EQ(lookups.Find("CustomerID"), "CustomerID,First,ID,Name,,0");
}

TEST_F(Lookups, FindsNothingWhereNothingWasAddedAndNoEmptyEntries) {
  EXPECT_EQ(lookups.Find("CustomerID"), "");
  EXPECT_EQ(lookups.Find(""), "");
  lookups.Add(LookupOf("A", "T"));
  EXPECT_EQ(lookups.Find(""), "");
}

TEST(EditLookup, IsAddedToTheViewAndReadBack) {
  ViewPage page;
  EXPECT_EQ(page.view.EditLookupAsString("CustomerID"), "");
  page.view.AddEditLookup("CustomerID", "Customers", "ID", "Name", "Name", true);
  page.view.AddEditLookup("CityID", "Cities", "Code", "City", "", false);
  EXPECT_EQ(page.view.EditLookupAsString("customerID"), "CustomerID,Customers,ID,Name,Name,1");
  EXPECT_EQ(page.view.EditLookupAsString("CityID"), "CityID,Cities,Code,City,,0");
  EXPECT_EQ(page.view.GetSettings().lookups.Entries()[2], "CityID,Cities,Code,City,,0");
  EXPECT_EQ(page.ErrorMessage(), "");
}

/// A text that no memory can hold; its characters are never looked at.
std::string_view BoundlessText() { return {"x", std::string().max_size()}; }

TEST(EditLookup, IsNotAddedAndReportedWhenItCannotBeKept) {
  ViewPage page;
  page.view.AddEditLookup("CustomerID", BoundlessText(), "ID", "Name", "Name", true);
  EXPECT_THAT(page.ErrorMessage(), testing::EndsWith(" in AddEditLookup. currUBound=-1<br>"));
  EXPECT_EQ(page.view.EditLookupAsString("CustomerID"), "");

  page.view.AddEditLookup("CustomerID", "Customers", "ID", "Name", "Name", true);
  page.view.AddEditLookup("CityID", BoundlessText(), "ID", "Name", "Name", true);
  EXPECT_THAT(page.ErrorMessage(), testing::EndsWith(" in AddEditLookup. currUBound=1<br>"));
  EXPECT_EQ(page.view.GetSettings().lookups.UpperBound(), 1);
  EXPECT_EQ(page.view.EditLookupAsString("CityID"), "");
}

}  // namespace
}  // namespace dralo::tests
