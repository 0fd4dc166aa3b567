#include "html/escaped_copy.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>

#include "html/text_block.h"
#include "html/text_escape.h"
#include "text/utf8.h"

namespace dralo::html {
namespace {

/// How far a copy has come.
struct CopyPlace {
  const char* from;
  char* to;
};

std::size_t BytesUntil(const char* end, const char* from) { return static_cast<std::size_t>(end - from); }

template <class Bytes>
Bytes Loaded(const char* from) {
  Bytes bytes;
  std::memcpy(&bytes, from, sizeof bytes);
  return bytes;
}

template <class Bytes>
void Store(char* to, Bytes bytes) {
  std::memcpy(to, &bytes, sizeof bytes);
}

/// What is written for a character of ASCII that is replaced; copied whole, which is one operation.
struct AsciiEscape {
  std::array<char, 7> text;
  std::uint8_t bytes;
};

constexpr auto kAsciiEscapes = [] {
  std::array<AsciiEscape, 128> escapes{};
  for (std::size_t byte = 0; byte < escapes.size(); ++byte) {
    const std::string_view by = EscapeOf(static_cast<char>(byte));
    AsciiEscape& escape = escapes[byte];
    std::ranges::copy(by, escape.text.begin());
    escape.bytes = static_cast<std::uint8_t>(by.size());
  }
  return escapes;
}();

/// Copies characters beyond ASCII, the first of which begins here, and what stands between them: as far as a
/// block and no markup goes, or only the first one when it has four bytes or is broken.
[[gnu::noinline]] CopyPlace CopyCharacters(CopyPlace at, const char* end) {
  const std::string_view rest(at.from, BytesUntil(end, at.from));
  const Block block = BlockAt(rest, 0);
  const Block markup = MarkupOf(block);
  const bool has_markup = HasHighBits(markup);
  const std::size_t bytes = has_markup ? BytesBeforeHighBit(markup) : std::min(kBlockBytes, rest.size());
  std::size_t characters = BytesOfCharacters(has_markup ? Start(block, bytes) : block);
  if (characters == 0) {
    const text::Decoded first = text::DecodeFirst(rest);
    if (!first.character) return {at.from + first.bytes, std::ranges::copy(kReplacementText, at.to).out};
    characters = first.bytes;
  }
  Store(at.to, block);
  characters = std::min(characters, bytes);
  return {at.from + characters, at.to + characters};
}

/// Copies a block, which holds the bytes from here on, up to its first byte that is replaced or begins a
/// character beyond ASCII, and that with it; `special` has high bits for such bytes.
inline CopyPlace CopySpecial(CopyPlace at, const char* end, Block special) {
  const std::size_t plain = BytesBeforeHighBit(special);
  at.from += plain;
  at.to += plain;
  const auto byte = static_cast<unsigned char>(*at.from);
  if (byte >= 0x80) return CopyCharacters(at, end);
  const AsciiEscape& escape = kAsciiEscapes[byte];
  Store(at.to, escape);
  return {at.from + 1, at.to + escape.bytes};
}

/// Copies the rest of a text, which is shorter than a block.
[[gnu::noinline]] char* CopyRest(CopyPlace at, const char* end) {
  while (at.from < end) {
    const Block block = BlockAt({at.from, BytesUntil(end, at.from)}, 0);
    Store(at.to, block);
    const Block special = MarkupOf(block) | block;
    if (!HasHighBits(special)) return at.to + BytesUntil(end, at.from);
    at = CopySpecial(at, end, special);
  }
  return at.to;
}

/// Copies the rest of a text that is not shorter than a block. Where the last block of the text has only
/// plain ASCII, what was copied of it is the same, and is written again.
char* CopyRestOfLong(CopyPlace at, const char* end) {
  const std::size_t rest = BytesUntil(end, at.from);
  const auto last = Loaded<Block>(end - kBlockBytes);
  if (HasHighBits(MarkupOf(last) | last)) return CopyRest(at, end);
  Store(at.to + rest - kBlockBytes, last);
  return at.to + rest;
}

/// CopyEscaped() of a text that is longer than a block; apart, so that the others need no frame.
[[gnu::noinline]] char* CopyLong(char* to, std::string_view text) {
  const char* const end = text.data() + text.size();
  CopyPlace at = {text.data(), to};
  while (BytesUntil(end, at.from) >= kBlockBytes) {
    const auto block = Loaded<Block>(at.from);
    Store(at.to, block);
    const Block special = MarkupOf(block) | block;
    if (HasHighBits(special)) {
      at = CopySpecial(at, end, special);
    } else {
      at.from += kBlockBytes;
      at.to += kBlockBytes;
    }
  }
  return CopyRestOfLong(at, end);
}

/// CopyEscaped() of a text that is no longer than a block and has something else than plain ASCII.
[[gnu::noinline]] char* CopyShort(char* to, std::string_view text) {
  const char* const end = text.data() + text.size();
  if (text.empty() || !IsShortAndOfTwoBytes(text)) return CopyRest({text.data(), to}, end);
  Store(to, BlockAt(text, 0));
  return to + text.size();
}

/// Copies a text of one to two halves, which may have bytes in common.
template <class Half>
char* CopyHalves(char* to, std::string_view text) {
  const std::size_t second = text.size() - sizeof(Half);
  const auto halves = std::array{Loaded<Half>(text.data()), Loaded<Half>(text.data() + second)};
  Store(to, halves[0]);
  Store(to + second, halves[1]);
  return to + text.size();
}

}  // namespace

char* CopyEscaped(char* to, std::string_view text) {
  if (text.size() > kBlockBytes) return CopyLong(to, text);
  if (!IsShortAndPlain(text)) return CopyShort(to, text);
  if (text.size() >= sizeof(std::uint64_t)) return CopyHalves<std::uint64_t>(to, text);
  if (text.size() >= sizeof(std::uint32_t)) return CopyHalves<std::uint32_t>(to, text);
  return std::ranges::copy(text, to).out;
}

}  // namespace dralo::html
