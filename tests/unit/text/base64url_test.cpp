#include "text/base64url.h"

#include <gtest/gtest.h>

namespace dralo::text {
namespace {

using ByteList = std::vector<std::uint8_t>;

std::string Written(const ByteList& bytes) {
  std::string text;
  PutBase64Url(bytes, text);
  return text;
}

TEST(Base64Url, WritesTheExamplesOfItsStandard) {
  EXPECT_EQ(Written({}), "");
  EXPECT_EQ(Written({'f'}), "Zg");
  EXPECT_EQ(Written({'f', 'o'}), "Zm8");
  EXPECT_EQ(Written({'f', 'o', 'o'}), "Zm9v");
  EXPECT_EQ(Written({'f', 'o', 'o', 'b'}), "Zm9vYg");
  EXPECT_EQ(Written({0xFB, 0xFF}), "-_8");
}

TEST(Base64Url, ReadsBackWhatItWrites) {
  ByteList bytes;
  for (int i = 0; i < 300; ++i) {
    EXPECT_EQ(ParseBase64Url(Written(bytes)), bytes) << i;
    bytes.push_back(static_cast<std::uint8_t>(i * 37));
  }
}

TEST(Base64Url, RefusesEveryOtherText) {
  for (const char* text : {"Zg==", "Zm+v", "Zm/v", "Z", "Zm9vY", " Zg", "Zg\n", "Zh", "Zm9", "\xC3\xA6"}) {
    EXPECT_EQ(ParseBase64Url(text), std::nullopt) << text;
  }
}

}  // namespace
}  // namespace dralo::text
