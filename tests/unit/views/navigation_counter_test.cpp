#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

#include "settings/setters.h"
#include "unit/views/navigation_bar_page.h"

namespace dralo::tests {
namespace {

using Counters = BarTest;
using PageCounter = BarTest;

struct Counted {
  const char* options;
  const char* in_the_grid;
  const char* in_the_one_record_view;
};

class TextOptions : public testing::TestWithParam<Counted> {};

TEST_P(TextOptions, ChooseTheCounters) {
  Bar grid;
  settings::SetDisplayNavBarTextOptions(grid.settings, GetParam().options);
  grid.ShowRows(21, 40);
  EXPECT_EQ(grid.Counter(), GetParam().in_the_grid);

  Bar form;
  settings::SetDisplayNavBarTextOptions(form.settings, GetParam().options);
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

TEST_F(Counters, ShowTheRowsOfThePageAndTheirCountWhenItIsKnown) {
  struct Case {
    std::int32_t from, to, count;
    const char* text;
  };
  for (const Case& one : {Case{41, 41, 41, "Record 41 of 41&nbsp;&nbsp;Page 3 of 3"},
                          Case{44, 45, 45, "Records (44..45) of 45&nbsp;&nbsp;Page 3 of 3"},
                          Case{21, 40, -1, "Records (21..40) &nbsp;&nbsp;Page 2"},
                          Case{41, 41, -1, "Record 41&nbsp;&nbsp;Page 3"}}) {
    settings.RecordCount = one.count;
    ShowRows(one.from, one.to);
    EXPECT_EQ(Counter(), one.text);
  }
}

TEST_F(Counters, ShowZeroForAnEmptyResult) {
  settings.FromRow = settings.ToRow = settings.RecordCount = 0;
  settings::SetDisplayNavBarTextOptions(settings, "records");

  EXPECT_EQ(Counter(), "Record 0 of 0");
}

TEST_F(Counters, ShowTheFullCountBehindALimit) {
  settings.RecordsMaxLimit = 50;
  settings.RecordCount = 200;

  EXPECT_EQ(Counter(), "Records (1..20) of 200&nbsp;&nbsp;Page 1 of 10");
}

TEST_F(Counters, SpeakTheLanguageOfTheView) {
  settings.language_tables = settings::BuiltInTables("NOR");
  EXPECT_EQ(Counter(), "poster (1..20) av 45&nbsp;&nbsp;side 1 av 3");

  ShowRows(45, 45);
  EXPECT_EQ(Counter(), "post 45 av 45&nbsp;&nbsp;side 3 av 3");
}

TEST_F(PageCounter, AgreesWithCountingThePagesOneByOne) {
  settings::SetDisplayNavBarTextOptions(settings, "pages");
  for (const std::int32_t count : {1, 2, 19, 20, 21, 40, 45, 1'000}) {
    for (const int page_size : {1, 2, 5, 20, 45, 1'000}) {
      std::int32_t pages = 0;
      for (std::int32_t first = 1; first <= count; first += page_size) ++pages;
      std::int32_t number = 0;
      for (std::int32_t first = 1; first <= count; first += page_size) {
        records_on_page = page_size;
        settings.RecordsPerPage = static_cast<std::int16_t>(page_size);
        settings.RecordCount = count;
        ShowRows(first, std::min(first + page_size - 1, count));
        ++number;

        ASSERT_EQ(Counter(), "Page " + std::to_string(number) + " of " + std::to_string(pages))
            << count << " records by " << page_size;
      }
    }
  }
}

TEST_F(PageCounter, StaysOnThePageThatHoldsTheFirstRecordShown) {
  settings::SetDisplayNavBarTextOptions(settings, "pages");
  for (const auto& [first, number] : {std::pair(1, 1), {2, 1}, {20, 1}, {21, 2}, {22, 2}, {40, 2}, {41, 3}}) {
    ShowRows(first, 45);

    EXPECT_EQ(Counter(), "Page " + std::to_string(number) + " of 3") << first;
  }
}

TEST_F(PageCounter, HoldsTheHighestNumbers) {
  settings::SetDisplayNavBarTextOptions(settings, "pages");
  settings.RecordCount = std::numeric_limits<std::int32_t>::max();
  settings.RecordsPerPage = 2;
  current_record = std::numeric_limits<std::int32_t>::max();

  EXPECT_EQ(Counter(), "Page 1073741824 of 1073741824");
}

}  // namespace
}  // namespace dralo::tests
