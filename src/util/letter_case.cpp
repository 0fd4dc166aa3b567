#include "util/letter_case.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace dralo::util {
namespace {

/// Small letters first, first + step, ... last; their capitals lie `capital` away.
struct LetterRange {
  char32_t first;
  char32_t last;
  char32_t step;
  int capital;
};

constexpr auto kRanges = std::to_array<LetterRange>({
    {0x00E0, 0x00F6, 1, -32}, {0x00F8, 0x00FE, 1, -32}, {0x00FF, 0x00FF, 1, 121},  {0x0101, 0x012F, 2, -1},
    {0x0133, 0x0137, 2, -1},  {0x013A, 0x0148, 2, -1},  {0x014B, 0x0177, 2, -1},   {0x017A, 0x017E, 2, -1},
    {0x01A1, 0x01A5, 2, -1},  {0x01B0, 0x01B0, 1, -1},  {0x01CE, 0x01DC, 2, -1},   {0x01DF, 0x01EF, 2, -1},
    {0x01F9, 0x021F, 2, -1},  {0x0223, 0x0233, 2, -1},  {0x0259, 0x0259, 1, -202}, {0x03AC, 0x03AC, 1, -38},
    {0x03AD, 0x03AF, 1, -37}, {0x03B1, 0x03C1, 1, -32}, {0x03C3, 0x03CB, 1, -32},  {0x03CC, 0x03CC, 1, -64},
    {0x03CD, 0x03CE, 1, -63}, {0x0430, 0x044F, 1, -32}, {0x0450, 0x045F, 1, -80},  {0x0461, 0x0481, 2, -1},
    {0x048B, 0x04BF, 2, -1},  {0x04C2, 0x04CE, 2, -1},  {0x04D1, 0x052F, 2, -1},   {0x0561, 0x0586, 1, -48},
    {0x1E01, 0x1E95, 2, -1},  {0x1EA1, 0x1EFF, 2, -1},
});

constexpr char32_t Capital(char32_t letter) {
  for (const LetterRange& range : kRanges) {
    if (letter < range.first || letter > range.last || (letter - range.first) % range.step != 0) continue;
    return static_cast<char32_t>(static_cast<int>(letter) + range.capital);
  }
  return letter;
}

constexpr char32_t Small(char32_t letter) {
  for (const LetterRange& range : kRanges) {
    const auto small = static_cast<char32_t>(static_cast<int>(letter) - range.capital);
    if (small >= range.first && small <= range.last && (small - range.first) % range.step == 0) return small;
  }
  return letter;
}

constexpr char CapitalAscii(char c) { return 'a' <= c && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
constexpr char SmallAscii(char c) { return 'A' <= c && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

constexpr bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

/// How many bytes the sequence at the start of `text` takes when it is UTF-8 of two or three bytes; else 0.
/// Longer spellings of a character than necessary are none: they could not be written again as they were.
std::size_t SequenceLength(std::string_view text) {
  const auto is_tail = [&](std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
  };
  const auto lead = static_cast<unsigned char>(text[0]);
  if ((lead & 0xE0) == 0xC0 && is_tail(1)) return 2;
  const bool is_overlong = lead == 0xE0 && text.size() > 1 && static_cast<unsigned char>(text[1]) < 0xA0;
  if ((lead & 0xF0) == 0xE0 && !is_overlong && is_tail(1) && is_tail(2)) return 3;
  return 0;
}

char32_t Decode(std::string_view sequence) {
  const auto bits = [&](std::size_t at, unsigned mask) {
    return static_cast<unsigned char>(sequence[at]) & mask;
  };
  if (sequence.size() == 2) return (bits(0, 0x1F) << 6) | bits(1, 0x3F);
  return (bits(0, 0x0F) << 12) | (bits(1, 0x3F) << 6) | bits(2, 0x3F);
}

/// Both cases of every letter in the table take two or three bytes.
void AppendSequence(std::string& text, char32_t letter) {
  const auto tail = [](char32_t bits) { return static_cast<char>(0x80 | (bits & 0x3F)); };
  if (letter < 0x800) {
    text += {static_cast<char>(0xC0 | (letter >> 6)), tail(letter)};
  } else {
    text += {static_cast<char>(0xE0 | (letter >> 12)), tail(letter >> 6), tail(letter)};
  }
}

template <char32_t (*Convert)(char32_t), char (*ConvertAscii)(char)>
std::string Converted(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  while (!text.empty()) {
    std::size_t length = 1;
    if (IsAscii(text[0])) {
      result += ConvertAscii(text[0]);
    } else if ((length = SequenceLength(text)) > 0) {
      AppendSequence(result, Convert(Decode(text.substr(0, length))));
    } else {
      length = 1;
      result += text[0];
    }
    text.remove_prefix(length);
  }
  return result;
}

}  // namespace

std::string ToUpper(std::string_view text) { return Converted<Capital, CapitalAscii>(text); }

std::string ToLower(std::string_view text) { return Converted<Small, SmallAscii>(text); }

bool EqualIgnoringCase(std::string_view left, std::string_view right) {
  if (left == right) return true;
  if (std::ranges::all_of(left, IsAscii) && std::ranges::all_of(right, IsAscii)) {
    return std::ranges::equal(left, right, {}, CapitalAscii, CapitalAscii);
  }
  return ToUpper(left) == ToUpper(right);
}

bool ContainsWord(std::string_view text, std::string_view word) {
  const auto is_letter = [](char c, char capital) { return CapitalAscii(c) == capital; };
  return std::search(text.begin(), text.end(), word.begin(), word.end(), is_letter) != text.end() ||
         word.empty();
}

}  // namespace dralo::util
