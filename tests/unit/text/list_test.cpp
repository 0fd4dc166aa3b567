#include "text/list.h"

#include <gtest/gtest.h>

#include <limits>

namespace dralo::text {
namespace {

using Items = std::vector<std::string>;

TEST(Split, KeepsBlanksAndEmptyItems) {
  EXPECT_EQ(Split("a, b,,c "), (Items{"a", " b", "", "c "}));
  EXPECT_EQ(Split(","), (Items{"", ""}));
  EXPECT_EQ(Split(",a,"), (Items{"", "a", ""}));
}

TEST(Split, MakesOneItemOfATextWithoutSeparator) {
  EXPECT_EQ(Split("a"), Items{"a"});
  EXPECT_EQ(Split(""), Items{""});
}

TEST(Split, TakesASeparatorOfSeveralCharacters) {
  EXPECT_EQ(Split("a<>b<c<>", "<>"), (Items{"a", "b<c", ""}));
}

TEST(Split, LeavesTheTextWholeWhenTheSeparatorIsEmpty) { EXPECT_EQ(Split("a,b", ""), Items{"a,b"}); }

TEST(FindInList, FindsTheFirstEqualItemInAnyLetterCase) {
  EXPECT_EQ(FindInList("ID,Name,name", "NAME"), 2);
  EXPECT_EQ(FindInList("Straße,GRÖSSE", "größe"), 0);
  EXPECT_EQ(FindInList("Straße,GRÖßE", "größe"), 2);
  EXPECT_EQ(FindInList("a,ⱥς", "ȺΣ"), 2);
}

TEST(FindInList, TrimsNeitherItemsNorText) {
  EXPECT_EQ(FindInList("ID, Name", "Name"), 0);
  EXPECT_EQ(FindInList("ID, Name", " Name"), 2);
  EXPECT_EQ(FindInList("ID,Name", "Name "), 0);
}

TEST(FindInList, ComparesWholeItems) {
  EXPECT_EQ(FindInList("Names,Name", "Name"), 2);
  EXPECT_EQ(FindInList("ID", "I"), 0);
}

TEST(FindInList, FindsNothingInABlankListOrForABlankText) {
  EXPECT_EQ(FindInList("", "a"), 0);
  EXPECT_EQ(FindInList("   ", "   "), 0);
  EXPECT_EQ(FindInList("a,,b", ""), 0);
  EXPECT_EQ(FindInList("a, ,b", " "), 0);
}

TEST(FindInList, CountsEmptyItemsAsPositions) { EXPECT_EQ(FindInList(",,x", "x"), 3); }

TEST(FindInList, FindsNumbersAsDecimalText) {
  EXPECT_EQ(FindInList("10,1,2", 1), 2);
  EXPECT_EQ(FindInList("01,+1", 1), 0);
  EXPECT_EQ(FindInList("-5", -5), 1);
  EXPECT_EQ(FindInList("a,-2147483648", std::numeric_limits<int>::min()), 2);
}

TEST(FindInList, FindsNothingBehindTheLastPositionThatItCanName) {
  std::string list;
  for (int item = 0; item < 40'000; ++item) list += "a,";

  EXPECT_EQ(FindInList(list + "b", "b"), 0);
  EXPECT_EQ(FindInList(list + "b", "A"), 1);
}

TEST(NthItem, CountsFromOneAndKeepsItemsAsTheyStand) {
  EXPECT_EQ(NthItem("a, b,,c", 1), "a");
  EXPECT_EQ(NthItem("a, b,,c", 2), " b");
  EXPECT_EQ(NthItem("a, b,,c", 3), "");
  EXPECT_EQ(NthItem("a, b,,c", 4), "c");
}

TEST(NthItem, IsEmptyOutsideTheList) {
  EXPECT_EQ(NthItem("a,b", 3), "");
  EXPECT_EQ(NthItem("a,b", 0), "");
  EXPECT_EQ(NthItem("a,b", -1), "");
  EXPECT_EQ(NthItem("", 1), "");
  EXPECT_EQ(NthItem("", 2), "");
}

TEST(CountOf, CountsSeparators) {
  EXPECT_EQ(CountOf("", ','), 0);
  EXPECT_EQ(CountOf("a", ','), 0);
  EXPECT_EQ(CountOf(",a,,b", ','), 3);
  EXPECT_EQ(CountOf("a;b", ';'), 1);
}

TEST(CountOf, StopsAtTheHighestNumberOfSixteenBits) {
  EXPECT_EQ(CountOf(std::string(100'000, ','), ','), 32'767);
}

}  // namespace
}  // namespace dralo::text
