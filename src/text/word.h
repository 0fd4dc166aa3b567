#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Eight bytes of a text at a time.
namespace dralo::text {

using Word = std::uint64_t;

inline constexpr std::size_t kWordBytes = sizeof(Word);

/// A word of eight such bytes.
constexpr Word Repeated(unsigned char byte) { return Word{0x0101010101010101} * byte; }

/// The bits that bytes beyond ASCII have.
inline constexpr Word kHighBits = Repeated(0x80);

/// The eight bytes from there on, the first in the lowest bits.
inline Word WordAt(const char* bytes) {
  Word word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return std::endian::native == std::endian::little ? word : __builtin_bswap64(word);
}

/// The bytes of a text of fewer than eight, and zeros behind them.
inline Word ShortWord(std::string_view text) {
  constexpr unsigned kByteBits = 8;
  constexpr std::size_t kHalf = kWordBytes / 2;
  if (text.size() >= kHalf && std::endian::native == std::endian::little) {
    std::uint32_t halves[2];
    std::memcpy(&halves[0], text.data(), kHalf);
    std::memcpy(&halves[1], text.data() + text.size() - kHalf, kHalf);
    return halves[0] | Word{halves[1]} << (kByteBits * (text.size() - kHalf));
  }
  Word word = 0;
  for (std::size_t at = text.size(); at > 0; --at) {
    word = word << kByteBits | static_cast<unsigned char>(text[at - 1]);
  }
  return word;
}

constexpr bool IsAscii(Word word) { return (word & kHighBits) == 0; }

}  // namespace dralo::text
