#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "unit/views/navigation_bar_page.h"

namespace dralo::views {
namespace {

struct Counted {
  const char* options;
  const char* in_the_grid;
  const char* in_the_one_record_view;
};

class TextOptions : public testing::TestWithParam<Counted> {};

TEST_P(TextOptions, ChooseTheCounters) {
  Bar grid;
  grid.settings.DisplayNavBarTextOptions = GetParam().options;
  grid.ShowRows(21, 40);
  EXPECT_EQ(grid.Counter(), GetParam().in_the_grid);

  Bar form;
  form.settings.DisplayNavBarTextOptions = GetParam().options;
  form.ShowRecord(27);
  EXPECT_EQ(form.Counter(), GetParam().in_the_one_record_view);
}

constexpr char kBoth[] = "Records (21..40) of 45&nbsp;&nbsp;Page 2 of 3";
constexpr char kRecord[] = "Record 27 of 45";

INSTANTIATE_TEST_SUITE_P(Words, TextOptions,
                         testing::Values(Counted{"both", kBoth, kRecord}, Counted{"DEFAULT", kBoth, kRecord},
                                         Counted{"", kBoth, kRecord}, Counted{"rows", kBoth, kRecord},
                                         Counted{"records pages", kBoth, kRecord},
                                         Counted{"records", "Records (21..40) of 45", kRecord},
                                         Counted{"  Records ", "Records (21..40) of 45", kRecord},
                                         Counted{"PAGES", "Page 2 of 3", ""},
                                         Counted{" pages ", "Page 2 of 3", ""}));

TEST(RecordCounter, ShowsOneNumberForASingleRow) {
  Bar bar;
  bar.ShowRows(41, 41);
  bar.settings.RecordCount = 41;

  EXPECT_EQ(bar.Counter(), "Record 41 of 41&nbsp;&nbsp;Page 3 of 3");
}

TEST(RecordCounter, ShowsTwoRowsAsARange) {
  Bar bar;
  bar.ShowRows(44, 45);

  EXPECT_EQ(bar.Counter(), "Records (44..45) of 45&nbsp;&nbsp;Page 3 of 3");
}

TEST(RecordCounter, ShowsZeroForAnEmptyResult) {
  Bar bar;
  bar.settings.FromRow = bar.settings.ToRow = bar.settings.RecordCount = 0;
  bar.settings.DisplayNavBarTextOptions = "records";

  EXPECT_EQ(bar.Counter(), "Record 0 of 0");
}

TEST(Counters, DropTheCountWhileItIsUnknown) {
  Bar bar;
  bar.settings.RecordCount = -1;
  bar.ShowRows(21, 40);
  EXPECT_EQ(bar.Counter(), "Records (21..40) &nbsp;&nbsp;Page 2");

  bar.ShowRows(41, 41);
  EXPECT_EQ(bar.Counter(), "Record 41&nbsp;&nbsp;Page 3");
}

TEST(Counters, ShowTheFullCountBehindALimit) {
  Bar bar;
  bar.settings.RecordsMaxLimit = 50;
  bar.settings.RecordCount = 200;

  EXPECT_EQ(bar.Counter(), "Records (1..20) of 200&nbsp;&nbsp;Page 1 of 10");
}

TEST(Counters, SpeakTheLanguageOfTheView) {
  Bar bar;
  bar.settings.language_tables = settings::BuiltInTables("NOR");
  EXPECT_EQ(bar.Counter(), "poster (1..20) av 45&nbsp;&nbsp;side 1 av 3");

  bar.ShowRows(45, 45);
  EXPECT_EQ(bar.Counter(), "post 45 av 45&nbsp;&nbsp;side 3 av 3");
}

TEST(PageCounter, AgreesWithCountingThePagesOneByOne) {
  for (const std::int32_t count : {1, 2, 19, 20, 21, 40, 45, 1'000}) {
    for (const int page_size : {1, 2, 5, 20, 45, 1'000}) {
      std::int32_t pages = 0;
      for (std::int32_t first = 1; first <= count; first += page_size) ++pages;
      std::int32_t page = 0;
      for (std::int32_t first = 1; first <= count; first += page_size) {
        Bar bar;
        bar.settings.DisplayNavBarTextOptions = "pages";
        bar.records_on_page = page_size;
        bar.settings.RecordsPerPage = static_cast<std::int16_t>(page_size);
        bar.settings.RecordCount = count;
        bar.ShowRows(first, std::min(first + page_size - 1, count));
        ++page;

        ASSERT_EQ(bar.Counter(), "Page " + std::to_string(page) + " of " + std::to_string(pages))
            << count << " records by " << page_size;
      }
    }
  }
}

TEST(PageCounter, StaysOnThePageThatHoldsTheFirstRecordShown) {
  for (const auto& [first, page] : {std::pair(1, 1), {2, 1}, {20, 1}, {21, 2}, {22, 2}, {40, 2}, {41, 3}}) {
    Bar bar;
    bar.settings.DisplayNavBarTextOptions = "pages";
    bar.ShowRows(first, 45);

    EXPECT_EQ(bar.Counter(), "Page " + std::to_string(page) + " of 3") << first;
  }
}

TEST(PageCounter, HoldsTheHighestNumbers) {
  Bar bar;
  bar.settings.DisplayNavBarTextOptions = "pages";
  bar.settings.RecordCount = std::numeric_limits<std::int32_t>::max();
  bar.settings.RecordsPerPage = 2;
  bar.current_record = std::numeric_limits<std::int32_t>::max();

  EXPECT_EQ(bar.Counter(), "Page 1073741824 of 1073741824");
}

}  // namespace
}  // namespace dralo::views
