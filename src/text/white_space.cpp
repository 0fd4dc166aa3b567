#include "text/white_space.h"

#include <algorithm>

namespace dralo::text {
namespace {

std::size_t InvisibleSize(std::string_view text) {
  const std::size_t space = WhiteSpaceSize(text);
  return space != 0 ? space : DirectionMarkSize(text);
}

/// How many bytes the white space or direction mark at the end of the text takes. None takes more than three,
/// and none is the end of a longer one, whatever bytes precede it.
std::size_t InvisibleSizeAtEnd(std::string_view text) {
  for (std::size_t size = 1; size <= std::min<std::size_t>(3, text.size()); ++size) {
    if (InvisibleSize(text.substr(text.size() - size)) == size) return size;
  }
  return 0;
}

}  // namespace

std::size_t WhiteSpaceSize(std::string_view text) {
  if (text.empty()) return 0;
  if (IsAsciiSpace(text[0])) return 1;
  if (static_cast<unsigned char>(text[0]) < 0x80) return 0;
  if (text.starts_with("\u00A0")) return 2;
  for (const std::string_view space : {"\u202F", "\u2009", "\u2007", "\u3000"}) {
    if (text.starts_with(space)) return 3;
  }
  return 0;
}

std::size_t DirectionMarkSize(std::string_view text) {
  if (text.starts_with("\u061C")) return 2;
  return text.starts_with("\u200E") || text.starts_with("\u200F") ? 3 : 0;
}

std::string_view TrimWhiteSpace(std::string_view text) {
  while (const std::size_t size = InvisibleSize(text)) text.remove_prefix(size);
  while (const std::size_t size = InvisibleSizeAtEnd(text)) text.remove_suffix(size);
  return text;
}

std::string PlainWhiteSpace(std::string_view text) {
  text = TrimWhiteSpace(text);
  std::string plain;
  plain.reserve(text.size());
  while (!text.empty()) {
    if (const std::size_t mark = DirectionMarkSize(text)) {
      text.remove_prefix(mark);
    } else if (const std::size_t space = WhiteSpaceSize(text)) {
      plain += ' ';
      text.remove_prefix(space);
    } else {
      plain += text.front();
      text.remove_prefix(1);
    }
  }
  return plain;
}

}  // namespace dralo::text
