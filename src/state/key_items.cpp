#include "state/key_items.h"

#include "text/ascii.h"
#include "text/list.h"

namespace dralo::state {
namespace {

bool IsEncoded(char c) { return c == '%' || c == ',' || static_cast<unsigned char>(c) < 0x20; }

std::optional<std::string> Decoded(std::string_view item) {
  std::string text;
  for (std::size_t i = 0; i < item.size(); ++i) {
    if (item[i] != '%') {
      text += item[i];
      continue;
    }
    if (i + 2 >= item.size()) return std::nullopt;
    const int high = text::HexDigit(item[i + 1]);
    const int low = text::HexDigit(item[i + 2]);
    if (high < 0 || low < 0) return std::nullopt;
    text += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return text;
}

}  // namespace

std::string KeyItem(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string item;
  for (const char c : text) {
    if (!IsEncoded(c)) {
      item += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    item += '%';
    item += kDigits[byte / 16];
    item += kDigits[byte % 16];
  }
  return item;
}

std::string KeyOfItems(std::span<const std::string> texts) {
  if (texts.size() == 1) return texts.front();
  std::string key;
  for (const std::string& text : texts) {
    if (&text != &texts.front()) key += ',';
    key += KeyItem(text);
  }
  return key;
}

std::optional<std::vector<std::string>> KeyItems(std::string_view key, std::size_t count) {
  if (count == 1) return std::vector<std::string>{std::string(key)};
  std::vector<std::string> texts;
  for (const std::string& item : text::Split(key)) {
    std::optional<std::string> text = Decoded(item);
    if (!text || KeyItem(*text) != item) return std::nullopt;
    texts.push_back(*std::move(text));
  }
  return texts.size() == count ? std::optional(std::move(texts)) : std::nullopt;
}

}  // namespace dralo::state
