#include "html/text_escape.h"

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

/// The highest bit of every byte that is 0, and perhaps of bytes above one that is.
constexpr Word ZeroBytes(Word word) { return (word - Repeated(1)) & ~word & Repeated(0x80); }

/// Whether any of the eight bytes is more than a plain character of ASCII. Of the five characters two pairs
/// differ in one bit: "&" and "'", "<" and ">".
bool NeedALook(Word word) {
  const Word found = ZeroBytes(word) | ZeroBytes(word ^ Repeated('"')) |
                     ZeroBytes((word & ~Repeated(1)) ^ Repeated('&')) |
                     ZeroBytes((word & ~Repeated(2)) ^ Repeated('<'));
  return (found | (word & Repeated(0x80))) != 0;
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

/// The number of plain characters of ASCII at the start, rounded down to words unless these are all.
std::size_t PlainWords(std::string_view text) {
  constexpr std::size_t kBytes = sizeof(Word);
  if (text.size() < kBytes / 2) return 0;
  if (text.size() < kBytes) return NeedALook(WordOfShort(text)) ? 0 : text.size();
  std::size_t at = 0;
  for (; at + kBytes <= text.size(); at += kBytes) {
    if (NeedALook(WordAt(text.data() + at))) return at;
  }
  return NeedALook(WordAt(text.data() + text.size() - kBytes)) ? at : text.size();
}

}  // namespace

std::size_t PlainBytes(std::string_view text) {
  std::size_t at = PlainWords(text);
  while (at < text.size()) {
    switch (kByteClasses[static_cast<unsigned char>(text[at])]) {
      case ByteClass::kPlain:
        ++at;
        break;
      case ByteClass::kReplaced:
        return at;
      case ByteClass::kBeyondAscii:
        const text::Decoded first = text::DecodeFirst(text.substr(at));
        if (!first.character) return at;
        at += first.bytes;
    }
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
