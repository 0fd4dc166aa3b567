#include "database/message_line.h"

#include <gtest/gtest.h>

namespace dralo::database {

namespace {

TEST(MessageLine, HasOneBlankBetweenWordsAndNoneAtItsEnds) {
  EXPECT_EQ(MessageLine(" could not connect:\r\n\tno  route\n"), "could not connect: no route");
  EXPECT_EQ(MessageLine(" \n"), "");
}

TEST(MessageLine, LeavesNoiseOutWhereverItStands) {
  constexpr std::string_view kNoise[] = {"ERROR: ", "FATAL: "};
  EXPECT_EQ(MessageLine("ERROR:  first\nFATAL: second ERROR: ", kNoise), "first second");
}

}  // namespace

}  // namespace dralo::database
