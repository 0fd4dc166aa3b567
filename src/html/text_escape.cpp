#include "html/text_escape.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "text/utf8.h"

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

using Word = std::uint64_t;

constexpr Word Repeated(unsigned char byte) { return Word{0x0101010101010101} * byte; }

constexpr Word kHighBits = Repeated(0x80);

/// The highest bit of every byte that is not 0, of a word of ASCII.
constexpr Word FilledBytes(Word word) { return word + Repeated(0x7F); }

/// Whether any of the eight bytes may be one of the replaced characters. Of these and "#", which is looked at
/// for nothing, four differ in two bits and two in one.
bool MayHaveMarkup(Word word) {
  const Word ascii = word & ~kHighBits;
  const Word plain = (FilledBytes(ascii) & FilledBytes((ascii & ~Repeated(5)) ^ Repeated('"')) &
                      FilledBytes((ascii & ~Repeated(2)) ^ Repeated('<'))) |
                     word;
  return (plain & kHighBits) != kHighBits;
}

Word WordAt(const char* bytes) {
  Word word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

/// All bytes of a text of four to seven, some of them twice.
Word WordOfShort(std::string_view text) {
  std::uint32_t halves[2];
  std::memcpy(&halves[0], text.data(), sizeof halves[0]);
  std::memcpy(&halves[1], text.data() + text.size() - sizeof halves[1], sizeof halves[1]);
  return Word{halves[0]} << 32 | halves[1];
}

/// The start of a text that has no markup.
struct Start {
  std::size_t bytes;  ///< Rounded down to words unless it is the whole text.
  Word all_bytes;     ///< Their bits, to see whether any byte is beyond ASCII.
};

Start StartWithoutMarkup(std::string_view text) {
  constexpr std::size_t kBytes = sizeof(Word);
  if (text.size() < kBytes / 2) return {0, 0};
  if (text.size() < kBytes) {
    const Word word = WordOfShort(text);
    return MayHaveMarkup(word) ? Start{0, 0} : Start{text.size(), word};
  }
  Start start = {0, 0};
  for (; start.bytes + kBytes <= text.size(); start.bytes += kBytes) {
    const Word word = WordAt(text.data() + start.bytes);
    if (MayHaveMarkup(word)) return start;
    start.all_bytes |= word;
  }
  const Word last = WordAt(text.data() + text.size() - kBytes);
  return MayHaveMarkup(last) ? start : Start{text.size(), start.all_bytes | last};
}

constexpr bool IsTail(char byte) { return (static_cast<unsigned char>(byte) & 0xC0) == 0x80; }

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

/// How many bytes of `text`, whose first `bytes` have no markup, are characters; at least `bytes` unless
/// there are some among them that are no UTF-8.
std::size_t CharactersWithin(std::string_view text, std::size_t bytes) {
  std::size_t at = 0;
  while (at < bytes) {
    const bool is_ascii = static_cast<unsigned char>(text[at]) < 0x80;
    const std::size_t more = is_ascii ? 1 : BytesOfCharacter({text.data() + at, text.size() - at});
    if (more == 0) return at;
    at += more;
  }
  return at;
}

/// The same for bytes that may have markup: ends where something is to be replaced.
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

}  // namespace

std::size_t PlainBytes(std::string_view text) {
  std::string_view rest = text;
  while (!rest.empty()) {
    const Start start = StartWithoutMarkup(rest);
    const bool is_ascii = (start.all_bytes & kHighBits) == 0;
    const std::size_t characters = is_ascii ? start.bytes : CharactersWithin(rest, start.bytes);
    rest.remove_prefix(characters);
    if (characters < start.bytes) break;
    const std::size_t looked_at = std::min(sizeof(Word), rest.size());
    const std::size_t plain = PlainWithin(rest, looked_at);
    rest.remove_prefix(plain);
    if (plain < looked_at) break;
  }
  return text.size() - rest.size();
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
  if (PlainBytes(text) == text.size()) return text;
  to.clear();
  AppendEscaped(to, text);
  return to;
}

void AppendEscaped(std::string& to, std::string_view text) {
  for (;;) {
    const std::size_t plain = PlainBytes(text);
    to.append(text.substr(0, plain));
    text.remove_prefix(plain);
    if (text.empty()) return;
    const Escape escape = FirstEscape(text);
    to.append(escape.by);
    text.remove_prefix(escape.bytes);
  }
}

}  // namespace dralo::html
