#include "html/text_escape.h"

#include <algorithm>

#include "html/text_block.h"
#include "text/utf8.h"

namespace dralo::html {
namespace {

/// How many of the first `bytes`, which have no markup, are characters; more than `bytes` where one goes on
/// behind them.
std::size_t CharactersWithin(std::string_view text, std::size_t bytes) {
  std::size_t at = 0;
  while (at < bytes) {
    const text::Decoded first = text::DecodeFirst(text.substr(at));
    if (!first.character) return at;
    at += first.bytes;
  }
  return at;
}

/// PlainBytes() of a text whose first `at` bytes are plain.
std::size_t PlainBytesFrom(std::string_view text, std::size_t at) {
  while (at < text.size()) {
    const std::size_t bytes = std::min(kBlockBytes, text.size() - at);
    const Block block = BlockAt(text, at);
    if (const std::size_t usual = BytesOfUpToTwo(block); usual > 0) {
      at += std::min(usual, bytes);
      continue;
    }
    const Block markup = MarkupOf(block);
    const bool has_markup = HasHighBits(markup);
    const std::size_t end = has_markup ? BytesBeforeHighBit(markup) : bytes;
    const std::size_t characters =
        HasHighBits(block) ? BytesOfCharacters(has_markup ? Start(block, end) : block) : kBlockBytes;
    const std::size_t plain =
        characters > 0 ? std::min(characters, end) : CharactersWithin(text.substr(at), end);
    at += plain;
    if (has_markup || (characters == 0 && plain < end)) return at;
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

/// Nearly all blocks are plain ASCII, or ASCII with markup; what they need is kept small.
std::size_t PlainBytes(std::string_view text) {
  if (text.size() <= kBlockBytes && IsShortAndPlain(text)) return text.size();
  for (std::size_t at = 0; at < text.size(); at += kBlockBytes) {
    if (text.size() - at < kBlockBytes) {
      // With bytes that were seen already the rest makes a whole block.
      const bool is_plain = at > 0 && IsShortAndPlain(text.substr(text.size() - kBlockBytes));
      return is_plain ? text.size() : PlainBytesFrom(text, at);
    }
    const Block block = BlockAt(text, at);
    const Block markup = MarkupOf(block);
    if (!HasHighBits(markup | block)) continue;
    return HasHighBits(block) ? PlainBytesFrom(text, at) : at + BytesBeforeHighBit(markup);
  }
  return text.size();
}

Escape FirstEscape(std::string_view text) {
  const std::string_view by = EscapeOf(text[0]);
  if (!by.empty()) return {1, by};
  return {text::DecodeFirst(text).bytes, kReplacementText};
}

namespace {

/// Escaped() of a text whose first `plain` bytes need no change.
[[gnu::noinline]] std::string_view EscapedBehind(std::string_view text, std::size_t plain, std::string& to) {
  to.assign(text.substr(0, plain));
  AppendReplaced(to, text.substr(plain));
  return to;
}

// Escaped() of texts that are long, or have more than plain ASCII: apart, so that they cost the others
// nothing.

[[gnu::noinline]] std::string_view LongEscaped(std::string_view text, std::string& to) {
  const std::size_t plain = PlainBytes(text);
  return plain == text.size() ? text : EscapedBehind(text, plain, to);
}

[[gnu::noinline]] std::string_view ShortEscaped(std::string_view text, std::string& to) {
  return IsShortAndOfTwoBytes(text) ? text : LongEscaped(text, to);
}

}  // namespace

std::string_view Escaped(std::string_view text, std::string& to) {
  if (text.size() > kBlockBytes) return LongEscaped(text, to);
  return IsShortAndPlain(text) ? text : ShortEscaped(text, to);
}

void AppendEscaped(std::string& to, std::string_view text) {
  const std::size_t plain = PlainBytes(text);
  to.append(text.substr(0, plain));
  if (plain < text.size()) AppendReplaced(to, text.substr(plain));
}

}  // namespace dralo::html
