#include "text/capitalisation.h"

#include <gtest/gtest.h>

namespace dralo::text {
namespace {

TEST(CapitaliseFirst, ChangesOnlyTextsWithoutSmallLetters) {
  EXPECT_EQ(CapitaliseFirst("HELLO WORLD"), "Hello world");
  EXPECT_EQ(CapitaliseFirst("Hello WORLD"), "Hello WORLD");
  EXPECT_EQ(CapitaliseFirst("ÄRGER"), "Ärger");
  EXPECT_EQ(CapitaliseFirst("ȺΣ"), "Ⱥσ");
  EXPECT_EQ(CapitaliseFirst("Οδός"), "Οδός");
  EXPECT_EQ(CapitaliseFirst(" AB"), " ab");
  EXPECT_EQ(CapitaliseFirst("123"), "123");
  EXPECT_EQ(CapitaliseFirst(""), "");
}

TEST(CapitaliseWords, BeginsWithABlankWhenItChangesTheText) {
  EXPECT_EQ(CapitaliseWords("JOHN SMITH"), " John Smith");
  EXPECT_EQ(CapitaliseWords("John SMITH"), "John SMITH");
  EXPECT_EQ(CapitaliseWords("123"), " 123");
  EXPECT_EQ(CapitaliseWords("A  B"), " A  B");
  EXPECT_EQ(CapitaliseWords("ØRE ÅL"), " Øre Ål");
  EXPECT_EQ(CapitaliseWords("ＡＢ ἌἌ"), " Ａｂ Ἄἄ");
}

}  // namespace
}  // namespace dralo::text
