#include "html/text_escape.h"

#include <array>

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

}  // namespace

std::size_t PlainBytes(std::string_view text) {
  std::size_t at = 0;
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
