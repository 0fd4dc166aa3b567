#include "text/sha256.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace dralo::text {
namespace {

std::string Hex(const Sha256::Digest& digest) {
  std::string text;
  for (const std::uint8_t byte : digest) {
    constexpr char kDigits[] = "0123456789abcdef";
    text.append({kDigits[byte >> 4], kDigits[byte & 15]});
  }
  return text;
}

std::string HashOf(std::string_view text) { return Hex(Sha256().Add(text).Finish()); }

TEST(Sha256, HashesTheExamplesOfTheStandard) {
  EXPECT_EQ(HashOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
  EXPECT_EQ(HashOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
  EXPECT_EQ(HashOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
            "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
  EXPECT_EQ(HashOf("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmnoijklmnopjklmnopqklmnopqr"
                   "lmnopqrsmnopqrstnopqrstu"),
            "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1");
  EXPECT_EQ(HashOf(std::string(1'000'000, 'a')),
            "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(Sha256, HashesShortMessagesOfTheValidationSystem) {
  EXPECT_EQ(HashOf("\xd3"), "28969cdfa74a12c82f3bad960b0b000aca2ac329deea5c2328ebc6f2ba9802c1");
  EXPECT_EQ(HashOf("\x11\xaf"), "5ca7133fa735326081558ac312c620eeca9970d1e70a4b95533d956f072d1f98");
  EXPECT_EQ(HashOf("\x74\xba\x25\x21"), "b16aa56be3880d18cd41e68384cf1ec8c17680c45a02b1575dc1518923ae8b0e");
}

TEST(Sha256, DoesNotCareHowTheTextIsCut) {
  std::string text;
  for (int i = 0; i < 300; ++i) text += static_cast<char>(i % 251);
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const std::string whole = HashOf(text.substr(0, length));
    for (const std::size_t piece : {1, 7, 63, 64, 65}) {
      Sha256 hash;
      for (std::size_t at = 0; at < length; at += piece) {
        hash.Add(std::string_view(text).substr(at, std::min(piece, length - at)));
      }
      ASSERT_EQ(Hex(hash.Finish()), whole) << length << " in pieces of " << piece;
    }
  }
}

}  // namespace
}  // namespace dralo::text
