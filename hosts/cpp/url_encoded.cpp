#include "hosts/cpp/url_encoded.h"

#include <algorithm>
#include <string>

#include "text/ascii.h"

namespace dralo::host {
namespace {

/// The byte that the two characters spell in hexadecimal, or negative.
int HexByte(std::string_view two) {
  return two.size() == 2 ? text::HexDigit(two[0]) << 4 | text::HexDigit(two[1]) : -1;
}

std::string Decoded(std::string_view text) {
  std::string decoded;
  decoded.reserve(text.size());
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    const int byte = c == '%' ? HexByte(text.substr(at + 1, 2)) : -1;
    if (byte >= 0) {
      decoded += static_cast<char>(byte);
      at += 2;
    } else {
      decoded += c == '+' ? ' ' : c;
    }
  }
  return decoded;
}

}  // namespace

std::vector<platform::RequestField> ParseUrlEncoded(std::string_view text) {
  std::vector<platform::RequestField> fields;
  while (!text.empty()) {
    const std::string_view pair = text.substr(0, text.find('&'));
    text.remove_prefix(std::min(pair.size() + 1, text.size()));
    const std::string_view name = pair.substr(0, pair.find('='));
    if (name.empty()) continue;
    const std::string_view value = pair.substr(std::min(name.size() + 1, pair.size()));
    fields.push_back({Decoded(name), Decoded(value)});
  }
  return fields;
}

}  // namespace dralo::host
