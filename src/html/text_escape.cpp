#include "html/text_escape.h"

#include <algorithm>
#include <array>

#include "text/utf8.h"
#include "text/word.h"

namespace dralo::html {
namespace {

enum class ByteClass : unsigned char { kPlain, kReplaced, kBeyondAscii };

constexpr std::array<ByteClass, 256> ByteClasses() {
  std::array<ByteClass, 256> classes{};
  for (const char c : std::string_view("&<>\"'\0", 6)) {
    classes[static_cast<unsigned char>(c)] = ByteClass::kReplaced;
  }
  for (std::size_t byte = 128; byte < 256; ++byte) classes[byte] = ByteClass::kBeyondAscii;
  return classes;
}

constexpr std::array<ByteClass, 256> kByteClasses = ByteClasses();

using text::IsTail;
using text::kHighBits;
using text::kWordBytes;
using text::Repeated;
using text::Word;

/// Sets the highest bit of every byte that is not 0; for a word of ASCII.
constexpr Word FilledBytes(Word word) { return word + Repeated(0x7F); }

/// Whether any of the eight bytes may be one of the replaced characters. Of these and "#", which is looked at
/// for nothing, four differ in two bits and two in one.
constexpr bool MayHaveMarkup(Word word) {
  const Word ascii = word & ~kHighBits;
  const Word plain = (FilledBytes(ascii) & FilledBytes((ascii & ~Repeated(5)) ^ Repeated('"')) &
                      FilledBytes((ascii & ~Repeated(2)) ^ Repeated('<'))) |
                     word;
  return (plain & kHighBits) != kHighBits;
}

/// How many bytes of a word are characters of one or two bytes: all, or all but the last where a character
/// begins there; 0 when other bytes are among them.
constexpr std::size_t BytesOfShortCharacters(Word word) {
  const Word beyond_ascii = word & kHighBits;
  const Word leads = beyond_ascii & (word << 1);
  const Word tails = beyond_ascii ^ leads;
  const Word longer_leads = leads & (word << 2);
  // C0 and C1 begin nothing.
  const Word leads_of_ascii = leads & ~FilledBytes(word & Repeated(0x1E));
  const bool are_short = tails == leads << 8 && (longer_leads | leads_of_ascii) == 0;
  return are_short ? kWordBytes - (leads >> 63) : 0;
}

/// How many bytes of a word are plain, looked at together: 0 when some may not be.
constexpr std::size_t PlainBytesOfWord(Word word) {
  if (MayHaveMarkup(word)) return 0;
  return text::IsAscii(word) ? kWordBytes : BytesOfShortCharacters(word);
}

/// The last one to seven `bytes` of a text, and letters behind them.
Word LastWord(std::string_view text, std::size_t bytes) {
  constexpr unsigned kByteBits = 8;
  const Word letters = Repeated('a') << (kByteBits * bytes);
  if (text.size() < kWordBytes) return text::ShortWord(text.substr(text.size() - bytes)) | letters;
  const Word last = text::WordAt(text.data() + text.size() - kWordBytes);
  return last >> (kByteBits * (kWordBytes - bytes)) | letters;
}

/// The bytes of the character at the start of a text that begins with a byte beyond ASCII; 0 when they are no
/// UTF-8. Those of two bytes, and nearly all of three, need no decoding.
std::size_t BytesOfCharacter(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  if (lead >= 0xC2 && lead <= 0xDF) return text.size() >= 2 && IsTail(text[1]) ? 2 : 0;
  if (lead > 0xE0 && lead <= 0xEF && lead != 0xED) {
    return text.size() >= 3 && IsTail(text[1]) && IsTail(text[2]) ? 3 : 0;
  }
  const text::Decoded first = text::DecodeFirst(text);
  return first.character ? first.bytes : 0;
}

/// How many of the first `bytes` are plain, one by one; more than `bytes` where a character goes on behind
/// them.
std::size_t PlainWithin(std::string_view text, std::size_t bytes) {
  std::size_t at = 0;
  while (at < bytes) {
    const ByteClass byte = kByteClasses[static_cast<unsigned char>(text[at])];
    if (byte == ByteClass::kReplaced) return at;
    const std::size_t more =
        byte == ByteClass::kPlain ? 1 : BytesOfCharacter({text.data() + at, text.size() - at});
    if (more == 0) return at;
    at += more;
  }
  return at;
}

/// Appends a text whose start is to be replaced.
void AppendReplaced(std::string& to, std::string_view text) {
  while (!text.empty()) {
    const Escape escape = FirstEscape(text);
    to.append(escape.by);
    text.remove_prefix(escape.bytes);
    const std::size_t plain = PlainBytes(text);
    to.append(text.substr(0, plain));
    text.remove_prefix(plain);
  }
}

}  // namespace

std::size_t PlainBytes(std::string_view text) {
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t bytes = std::min(kWordBytes, text.size() - at);
    const Word word = bytes == kWordBytes ? text::WordAt(text.data() + at) : LastWord(text, bytes);
    std::size_t plain = std::min(PlainBytesOfWord(word), bytes);
    if (plain == 0) {
      plain = PlainWithin({text.data() + at, text.size() - at}, bytes);
      if (plain < bytes) return at + plain;
    }
    at += plain;
  }
  return at;
}

Escape FirstEscape(std::string_view text) {
  switch (text[0]) {
    case '&':
      return {1, "&amp;"};
    case '<':
      return {1, "&lt;"};
    case '>':
      return {1, "&gt;"};
    case '"':
      return {1, "&quot;"};
    case '\'':
      return {1, "&#39;"};
    case '\0':
      return {1, "\xEF\xBF\xBD"};
    default:
      return {text::DecodeFirst(text).bytes, "\xEF\xBF\xBD"};
  }
}

std::string_view Escaped(std::string_view text, std::string& to) {
  const std::size_t plain = PlainBytes(text);
  if (plain == text.size()) return text;
  to.assign(text.substr(0, plain));
  AppendReplaced(to, text.substr(plain));
  return to;
}

void AppendEscaped(std::string& to, std::string_view text) {
  const std::size_t plain = PlainBytes(text);
  to.append(text.substr(0, plain));
  if (plain < text.size()) AppendReplaced(to, text.substr(plain));
}

}  // namespace dralo::html
