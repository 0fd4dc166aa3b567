#include "html/escaped_copy.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <string_view>

#include "unit/html/escaped_one_by_one.h"

namespace dralo::tests {
namespace {

constexpr std::size_t kAlignments = 16;
constexpr std::size_t kLongest = 100;

/// Markup, controls, characters of one to four bytes, and bytes that are no UTF-8.
constexpr std::string_view kOddPieces[] = {"&",
                                           "<",
                                           ">",
                                           "\"",
                                           "'",
                                           {"\0", 1},
                                           "\x01",
                                           "\t",
                                           "\r\n",
                                           "\x7F",
                                           "#",
                                           "=",
                                           "?",
                                           "\xC3\xB6",
                                           "\xD0\x96",
                                           "\xE2\x82\xAC",
                                           "\xE0\xA4",
                                           "\xC3",
                                           "\xBF",
                                           "\xC1\xBF",
                                           "\xE2\x82",
                                           "\xFF",
                                           "\xF0\x9F",
                                           "\xED\xA0\x80",
                                           "\xF0\x9F\x98\x80"};

/// `text` copied from that alignment; memory checkers see a read behind its end and a write behind its room.
std::string CopiedFrom(std::size_t alignment, std::string_view text) {
  const auto source = std::make_unique<char[]>(alignment + text.size());
  char* const start = source.get() + alignment;
  text.copy(start, text.size());
  const auto room = std::make_unique<char[]>(html::RoomForEscaped(text.size()));
  const char* const end = html::CopyEscaped(room.get(), {start, text.size()});
  return {room.get(), static_cast<std::size_t>(end - room.get())};
}

TEST(EscapedCopy, TakesEveryPieceAtEveryPlace) {
  for (const std::string_view piece : kOddPieces) {
    for (std::size_t size = piece.size(); size <= kLongest; ++size) {
      for (std::size_t at = 0; at + piece.size() <= size; ++at) {
        std::string text(size, 'x');
        text.replace(at, piece.size(), piece);
        ASSERT_EQ(CopiedFrom((size + at) % kAlignments, text), EscapedOneByOne(text))
            << testing::PrintToString(text);
      }
    }
  }
}

TEST(EscapedCopy, WritesWhatGoingByteByByteWrites) {
  std::minstd_rand random(11);  // NOLINT(cert-msc51-cpp): the same texts each time
  const auto draw = [&random](std::size_t below) { return static_cast<std::size_t>(random()) % below; };
  for (std::size_t alignment = 0; alignment < kAlignments; ++alignment) {
    for (std::size_t size = 0; size <= kLongest; ++size) {
      for (const std::size_t plain_share : {0, 1, 6, 20}) {
        std::string text;
        while (text.size() < size) {
          if (draw(plain_share + 1) == 0) text += kOddPieces[draw(std::size(kOddPieces))];
          text += std::string(draw(plain_share + 1), 'y');
        }
        text.resize(size);
        ASSERT_EQ(CopiedFrom(alignment, text), EscapedOneByOne(text)) << testing::PrintToString(text);
      }
    }
  }
}

TEST(EscapedCopy, FillsNoMoreThanItsRoom) {
  for (std::size_t size = 0; size <= kLongest; ++size) {
    EXPECT_EQ(CopiedFrom(0, std::string(size, '"')).size(), 6 * size);
    EXPECT_EQ(CopiedFrom(0, std::string(size, '\xFF')).size(), 3 * size);
  }
}

}  // namespace
}  // namespace dralo::tests
