#include "text/log_line.h"

#include "text/utf8.h"

namespace dralo::text {
namespace {

bool MayStandInALine(char32_t character) {
  const bool is_control = character < 0x20 || (character >= 0x7F && character < 0xA0);
  return !is_control && character != 0x2028 && character != 0x2029;
}

void AppendSigns(std::string& line, std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    line.append("\\x").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 0xF]);
  }
}

}  // namespace

std::string LogLine(std::string_view text) {
  std::string line;
  std::string piece;
  while (!text.empty()) {
    const Decoded first = DecodeFirst(text);
    const std::string_view bytes = text.substr(0, first.bytes);
    text.remove_prefix(first.bytes);
    piece.clear();
    if (first.character && MayStandInALine(*first.character)) {
      piece = bytes;
    } else {
      AppendSigns(piece, bytes);
    }
    if (line.size() + piece.size() > kLogLineBytes) break;
    line += piece;
  }
  return line;
}

}  // namespace dralo::text
