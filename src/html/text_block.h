#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "text/word.h"

/// Sixteen bytes of a text at a time, for the search of what must be escaped.
namespace dralo::html {

/// Sixteen bytes of a text. The compilers for whose processors that is a register have one operation for all
/// of them, the others do the same with several. A comparison has 255 where it is true.
using Block = unsigned char __attribute__((vector_size(16)));
inline constexpr std::size_t kBlockBytes = sizeof(Block);
using Words = text::Word __attribute__((vector_size(sizeof(Block))));

inline constexpr char kFiller = 'a';

/// The words of a block, each with its first byte in the lowest bits, or the block of such words.
template <class To, class From>
To Reordered(From from) {
  if constexpr (std::endian::native == std::endian::little) return reinterpret_cast<To>(from);
  const Words words = reinterpret_cast<Words>(from);
  return reinterpret_cast<To>(Words{__builtin_bswap64(words[0]), __builtin_bswap64(words[1])});
}

/// How many bytes stand before the first one with its highest bit; all when there is none.
inline std::size_t BytesBeforeHighBit(Block block) {
#ifdef __SSE2__
  const auto high_bits = static_cast<unsigned>(_mm_movemask_epi8(reinterpret_cast<__m128i>(block)));
  return static_cast<std::size_t>(std::countr_zero(high_bits | 1U << kBlockBytes));
#else
  constexpr unsigned kByteBits = 8;
  const Words words = Reordered<Words>(block) & text::kHighBits;
  if (words[0] != 0) return static_cast<std::size_t>(std::countr_zero(words[0])) / kByteBits;
  return text::kWordBytes + static_cast<std::size_t>(std::countr_zero(words[1])) / kByteBits;
#endif
}

inline bool HasHighBits(Block block) {
#ifdef __SSE2__
  return _mm_movemask_epi8(reinterpret_cast<__m128i>(block)) != 0;
#else
  const Words words = reinterpret_cast<Words>(block);
  return !text::IsAscii(words[0] | words[1]);
#endif
}

/// True for the characters that are replaced, two of which differ in one bit twice.
inline Block MarkupOf(Block block) {
  return static_cast<Block>((block & static_cast<unsigned char>(~4)) == '"') |
         static_cast<Block>(block == '\'') |
         static_cast<Block>((block & static_cast<unsigned char>(~2)) == '<') | static_cast<Block>(block == 0);
}

/// Every byte in the place of the next.
inline Block Behind(Block block) {
  return __builtin_shufflevector(block, Block{}, 16, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14);
}

/// How many bytes of a block are characters of one to three bytes: all, or all but those of one that ends
/// behind it; 0 when other bytes are among them.
inline std::size_t BytesOfCharacters(Block block) {
  const auto leads_of_two = static_cast<Block>((block & 0xE0) == 0xC0);
  const auto leads_of_three = static_cast<Block>((block & 0xF0) == 0xE0);
  const Block leads = leads_of_two | leads_of_three;
  const auto tails = static_cast<Block>((block & 0xC0) == 0x80);
  const Block tails_due = Behind(leads) | Behind(Behind(leads_of_three));
  const auto are_low = static_cast<Block>((block & 0x20) == 0);
  // C0 and C1 begin nothing; behind E0 would be a longer spelling than necessary, behind ED a surrogate.
  const Block others = (block & ~(leads | tails)) | static_cast<Block>((block & 0xFE) == 0xC0) |
                       (Behind(static_cast<Block>(block == 0xE0)) & are_low) |
                       (Behind(static_cast<Block>(block == 0xED)) & ~are_low);
  if (HasHighBits(others | (tails ^ tails_due))) return 0;
  if (leads_of_three[kBlockBytes - 2] != 0) return kBlockBytes - 2;
  return leads[kBlockBytes - 1] != 0 ? kBlockBytes - 1 : kBlockBytes;
}

/// The first bytes of a block, and letters behind them.
inline Block Start(Block block, std::size_t bytes) {
  static constexpr std::array<unsigned char, 2 * kBlockBytes> kKept = [] {
    std::array<unsigned char, 2 * kBlockBytes> kept{};
    for (std::size_t at = 0; at < kBlockBytes; ++at) kept[at] = 255;
    return kept;
  }();
  Block kept{};
  std::memcpy(&kept, kKept.data() + kBlockBytes - bytes, sizeof kept);
  return (block & kept) | (~kept & kFiller);
}

/// The last one to seven `bytes` of a text, and letters behind them.
inline text::Word LastWord(std::string_view text, std::size_t bytes) {
  constexpr unsigned kByteBits = 8;
  const text::Word letters = text::Repeated(kFiller) << (kByteBits * bytes);
  if (text.size() < text::kWordBytes) return text::ShortWord(text.substr(text.size() - bytes)) | letters;
  return text::WordAt(text.data() + text.size() - text::kWordBytes) >>
             (kByteBits * (text::kWordBytes - bytes)) |
         letters;
}

/// The bytes from `at` on, which is before the end, and letters behind the last.
inline Block BlockAt(std::string_view text, std::size_t at) {
  const char* const start = text.data() + at;
  const std::size_t bytes = text.size() - at;
  if (bytes >= kBlockBytes)
    return Reordered<Block>(Words{text::WordAt(start), text::WordAt(start + text::kWordBytes)});
  const std::size_t last_bytes = bytes % text::kWordBytes;
  const text::Word letters = text::Repeated(kFiller);
  const text::Word last = last_bytes == 0 ? letters : LastWord(text, last_bytes);
  return Reordered<Block>(bytes < text::kWordBytes ? Words{last, letters} : Words{text::WordAt(start), last});
}

/// All bytes of a text that is not longer than a block, in some order, and some of them more than once.
inline Block EveryByte(std::string_view text) {
  const char* const end = text.data() + text.size();
  if (text.size() >= text::kWordBytes)
    return reinterpret_cast<Block>(Words{text::WordAt(text.data()), text::WordAt(end - text::kWordBytes)});
  text::Word word = text::Repeated(kFiller);
  if (text.size() >= sizeof(std::uint32_t)) {
    std::memcpy(&word, text.data(), sizeof(std::uint32_t));
    std::memcpy(reinterpret_cast<char*>(&word) + sizeof(std::uint32_t), end - sizeof(std::uint32_t),
                sizeof(std::uint32_t));
  } else if (!text.empty()) {
    const std::array<char, 3> bytes = {text.front(), text[text.size() / 2], text.back()};
    std::memcpy(&word, bytes.data(), bytes.size());
  }
  return reinterpret_cast<Block>(Words{word, word});
}

/// Whether a text that is not longer than a block is plain ASCII.
inline bool IsShortAndPlain(std::string_view text) {
  const Block block = EveryByte(text);
  return !HasHighBits(MarkupOf(block) | block);
}

/// How many bytes of a block are plain ASCII and characters of two bytes, as most names of Europe that are
/// not plain have: all, or all but the last one that goes on behind it; 0 when other bytes are among them.
inline std::size_t BytesOfUpToTwo(Block block) {
  const auto leads = static_cast<Block>((block & 0xE0) == 0xC0);
  const auto tails = static_cast<Block>((block & 0xC0) == 0x80);
  const Block others = static_cast<Block>((block & 0xE0) == 0xE0) |
                       static_cast<Block>((block & 0xFE) == 0xC0) | (tails ^ Behind(leads)) | MarkupOf(block);
  if (HasHighBits(others)) return 0;
  return leads[kBlockBytes - 1] != 0 ? kBlockBytes - 1 : kBlockBytes;
}

/// Whether a text that is not longer than a block has nothing but plain ASCII and characters of two bytes.
inline bool IsShortAndOfTwoBytes(std::string_view text) {
  return BytesOfUpToTwo(BlockAt(text, 0)) == kBlockBytes;
}

}  // namespace dralo::html
