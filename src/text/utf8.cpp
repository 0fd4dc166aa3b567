#include "text/utf8.h"

namespace dralo::text {
namespace {

/// What the first byte of a character of several bytes says about the others.
struct Lead {
  std::size_t bytes = 1;  ///< Of the complete character; 1 when the byte begins none.
  unsigned char lowest_second = 0x80;
  unsigned char highest_second = 0xBF;
};

constexpr Lead ReadLead(unsigned char byte) {
  if (byte < 0xC2 || byte > 0xF4) return {};
  if (byte < 0xE0) return {2};
  if (byte == 0xE0) return {3, 0xA0};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte < 0xF0) return {3};
  if (byte == 0xF0) return {4, 0x90};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {4};
}

}  // namespace

Decoded DecodeFirst(std::string_view text) {
  const auto byte_at = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char first = byte_at(0);
  if (first < 0x80) return {1, first};
  const Lead lead = ReadLead(first);
  char32_t character = first & (0x7FU >> lead.bytes);
  std::size_t bytes = 1;
  for (; bytes < lead.bytes && bytes < text.size(); ++bytes) {
    const unsigned char tail = byte_at(bytes);
    const bool is_second = bytes == 1;
    if (tail < (is_second ? lead.lowest_second : 0x80) || tail > (is_second ? lead.highest_second : 0xBF))
      break;
    character = (character << 6) | (tail & 0x3FU);
  }
  if (lead.bytes == 1 || bytes < lead.bytes) return {bytes, std::nullopt};
  return {bytes, character};
}

void AppendUtf8(std::string& text, char32_t character) {
  const auto put = [&](char32_t byte) { text += static_cast<char>(static_cast<unsigned char>(byte)); };
  const auto put_tail = [&](int shift) { put(0x80 | ((character >> shift) & 0x3F)); };
  if (character < 0x80) {
    put(character);
  } else if (character < 0x800) {
    put(0xC0 | (character >> 6));
  } else if (character < 0x10000) {
    put(0xE0 | (character >> 12));
    put_tail(6);
  } else {
    put(0xF0 | (character >> 18));
    put_tail(12);
    put_tail(6);
  }
  if (character >= 0x80) put_tail(0);
}

}  // namespace dralo::text
