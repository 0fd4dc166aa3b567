#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <tuple>

#include "component/db_connection.h"
#include "unit/driver/visitor.h"

namespace dralo::driver {
namespace {

void Walk(const Variant& variant, int rows, int clicks) {
  std::mt19937 random(static_cast<unsigned>(rows + 1));
  Visitor visitor(variant, rows);
  visitor.Check();
  for (int click = 1; click <= clicks && !::testing::Test::HasFailure(); ++click) {
    SCOPED_TRACE("click " + std::to_string(click));
    visitor.Click(random);
    visitor.Check();
  }
}

class RandomWalk : public ::testing::TestWithParam<int> {};

TEST_P(RandomWalk, OfFiveHundredClicksAlwaysShowsTheRightPage) { Walk({.name = "plain"}, GetParam(), 500); }

INSTANTIATE_TEST_SUITE_P(Tables, RandomWalk, ::testing::Values(0, 1, 19, 20, 21, 45, 1'000));

const Variant kVariants[] = {
    {.name = "UnknownCount", .script = {{"CountRecords", false}}, .rules = {.is_counted = false}},
    {.name = "UnknownCountWithoutEnds",
     .script = {{"DisplayNavBarFirstLastBtn", false}, {"CountRecords", false}},
     .rules = {.is_counted = false},
     .has_ends = false},
    {.name = "Limit", .script = {{"RecordsMaxLimit", 50}}, .rules = {.limit = 50}},
    {.name = "LimitOfAnUnknownCount",
     .script = {{"CountRecords", false}, {"RecordsMaxLimit", 50}},
     .rules = {.limit = 50, .is_counted = false}},
    {.name = "BarAtTheTop", .script = {{"DisplayNavBar", "top"}}},
    {.name = "BothBarsAndALimit",
     .script = {{"DisplayNavBar", "both"},
                {"RecordsMaxLimit", 50},
                {"RecordsPerPageSelectPlacement", "bottom"}},
     .rules = {.limit = 50},
     .bars = 2},
    {.name = "WithoutCss", .script = {{"UseCSS", false}}},
    {.name = "AnotherTag", .tags = {"2"}},
    {.name = "TwoViews", .tags = {"1", "2"}},
    {.name = "TwoUncountedViews",
     .script = {{"CountRecords", false}},
     .rules = {.is_counted = false},
     .tags = {"a", "B"},
     .own_fields = {{"Search", "x"}}},
    {.name = "OwnFields",
     .own_fields =
         {{"Search", "5\" <b> & 'x' + 100%"}, {"City[]", "Oslo"}, {"City[]", ""}, {"\"", "\xFF\r\n"}}},
    {.name = "PostedStatement", .script = {{"PersistentSQL", true}}, .posts_statement = true},
    {.name = "Command",
     .script = {{"StoredProcCommand",
                 tests::MakeCommand("SELECT * FROM Items WHERE ID>?", {std::int64_t{0}})}}},
    {.name = "SuppliedRecordset",
     .script = {{"GridColsNoSort", "1,2,3"}},
     .configure =
         [](component::DbView& view) {
           auto records = platform::Create<platform::Recordset>(tests::TestEnvironment(), "ADODB.Recordset");
           records->Open(kItems, view.GetSettings().DrConnection->Connection());
           view.Set("ADORecordset", platform::ObjectPtr(records));
         },
     .rules = {.is_counted = false}},
    {.name = "WithoutSelect", .script = {{"DisplayRecordsPerPageSelect", false}}},
};

class VariedWalk : public ::testing::TestWithParam<std::tuple<Variant, int>> {};

TEST_P(VariedWalk, AlwaysShowsTheRightPage) {
  const auto& [variant, rows] = GetParam();
  Walk(variant, rows, 60);
}

INSTANTIATE_TEST_SUITE_P(Pages, VariedWalk,
                         ::testing::Combine(::testing::ValuesIn(kVariants),
                                            ::testing::Values(0, 1, 21, 45, 1'000)),
                         [](const auto& one) {
                           return std::string(std::get<0>(one.param).name) + "Of" +
                                  std::to_string(std::get<1>(one.param));
                         });

}  // namespace
}  // namespace dralo::driver
