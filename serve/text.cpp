#include "text.h"

#include <charconv>

namespace serve {
namespace {

std::string_view Reference(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    default:
      return {};
  }
}

bool StandsForItself(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '-' ||
         c == '.' || c == '~';
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    const std::string_view reference = Reference(c);
    if (reference.empty()) {
      escaped += c;
    } else {
      escaped += reference;
    }
  }
  return escaped;
}

std::string PathSegment(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string segment = text == "." || text == ".." || text.starts_with('~') ? "~" : "";
  for (const char c : text) {
    if (StandsForItself(c)) {
      segment += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      segment.append({'%', kDigits[byte >> 4U], kDigits[byte & 15U]});
    }
  }
  return segment;
}

std::optional<std::string> ReadPathSegment(std::string_view text) {
  if (text.starts_with('~')) text.remove_prefix(1);
  std::string read;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '%') {
      read += text[at];
      continue;
    }
    unsigned byte = 0;
    const std::string_view digits = text.substr(at + 1, 2);
    const auto parsed = std::from_chars(digits.data(), digits.data() + digits.size(), byte, 16);
    if (digits.size() != 2 || parsed.ptr != digits.data() + 2) return std::nullopt;
    read += static_cast<char>(byte);
    at += 2;
  }
  return read;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  }
  return lower;
}

}  // namespace serve
