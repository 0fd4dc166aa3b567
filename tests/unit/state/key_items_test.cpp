#include "state/key_items.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace dralo::state {
namespace {

using Texts = std::vector<std::string>;

TEST(KeyItems, StayApartWhateverTheyHold) {
  const Texts texts = {"a,b", "50 %", "", " x\ty ", "\xC3\xA4"};
  const std::string key = KeyOfItems(texts);
  EXPECT_EQ(key, "a%2Cb,50 %25,, x%09y ,\xC3\xA4");
  EXPECT_EQ(KeyItems(key, 5), texts);
}

TEST(KeyItems, OfOneColumnAreTheKey) {
  EXPECT_EQ(KeyItems("a,50 %2C", 1), Texts{"a,50 %2C"});
  EXPECT_EQ(KeyItems("", 1), Texts{""});
  EXPECT_EQ(KeyOfItems(Texts{"a,50 %2C"}), "a,50 %2C");
}

TEST(KeyItems, AreNoneWhenTheirNumberOrFormIsAnother) {
  for (const char* key : {"a", "a,b,c", "a,%", "a,%4", "a,%XY", "a,%2"})
    EXPECT_EQ(KeyItems(key, 2), std::nullopt) << key;
}

/// Else a record would have several addresses.
TEST(KeyItems, AreNoneWhenTheyAreSpelledInAnotherWay) {
  for (const char* key : {"a,\x01", "a,%61", "a,%2c", "a\n,b"})
    EXPECT_EQ(KeyItems(key, 2), std::nullopt) << key;
}

}  // namespace
}  // namespace dralo::state
