#include "support/browser_form.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

#include "support/html_elements.h"
#include "support/named_characters.h"

namespace dralo::tests {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

void AppendCharacter(std::string& text, std::uint32_t code) {
  const auto tail = [&](int shift) { return static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
  if (code == 0 || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
    text += kReplacement;
  } else if (code < 0x80) {
    text += static_cast<char>(code);
  } else if (code < 0x800) {
    text += {static_cast<char>(0xC0 | (code >> 6)), tail(0)};
  } else if (code < 0x10000) {
    text += {static_cast<char>(0xE0 | (code >> 12)), tail(6), tail(0)};
  } else {
    text += {static_cast<char>(0xF0 | (code >> 18)), tail(12), tail(6), tail(0)};
  }
}

/// The decoder of the Encoding Standard, byte by byte.
class Utf8Decoder {
 public:
  void Read(std::uint8_t byte) {
    if (needed_ == 0) return Begin(byte);
    if (byte < lower_ || byte > upper_) {
      text += kReplacement;
      needed_ = 0;
      return Begin(byte);
    }
    lower_ = 0x80;
    upper_ = 0xBF;
    code_ = (code_ << 6) | (byte & 0x3F);
    if (--needed_ == 0) AppendCharacter(text, code_);
  }

  void End() {
    if (needed_ > 0) text += kReplacement;
  }

  std::string text;

 private:
  void Begin(std::uint8_t byte) {
    lower_ = byte == 0xE0 ? 0xA0 : byte == 0xF0 ? 0x90 : 0x80;
    upper_ = byte == 0xED ? 0x9F : byte == 0xF4 ? 0x8F : 0xBF;
    if (byte < 0x80) {
      AppendCharacter(text, byte);
    } else if (0xC2 <= byte && byte <= 0xDF) {
      Expect(1, byte & 0x1F);
    } else if (0xE0 <= byte && byte <= 0xEF) {
      Expect(2, byte & 0x0F);
    } else if (0xF0 <= byte && byte <= 0xF4) {
      Expect(3, byte & 0x07);
    } else {
      text += kReplacement;
    }
  }

  void Expect(int bytes, std::uint32_t bits) {
    needed_ = bytes;
    code_ = bits;
  }

  int needed_ = 0;
  std::uint32_t code_ = 0;
  std::uint8_t lower_ = 0x80;
  std::uint8_t upper_ = 0xBF;
};

/// `text` with every line break, of any kind, replaced.
std::string WithLineBreaks(std::string_view text, std::string_view line_break) {
  std::string result;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] != '\r' && text[at] != '\n') {
      result += text[at];
      continue;
    }
    if (text[at] == '\r' && text.substr(at + 1).starts_with('\n')) ++at;
    result += line_break;
  }
  return result;
}

bool IsLetterOrDigit(char c) {
  return ('0' <= c && c <= '9') || ('a' <= c && c <= 'z') || ('A' <= c && c <= 'Z');
}

/// Takes the digits of a numeric reference, behind "&#". False when there are none.
bool TakeNumericReference(std::string_view& rest, std::string& text) {
  const bool is_hexadecimal = rest.starts_with('x') || rest.starts_with('X');
  const std::string_view digits = rest.substr(is_hexadecimal ? 1 : 0);
  std::uint32_t code = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), code, is_hexadecimal ? 16 : 10);
  if (end == digits.data()) return false;
  AppendCharacter(text, error == std::errc() ? code : 0);
  rest = digits.substr(static_cast<std::size_t>(end - digits.data()));
  if (rest.starts_with(';')) rest.remove_prefix(1);
  return true;
}

/// Takes a named reference, behind "&". False when browsers read none there.
bool TakeNamedReference(std::string_view& rest, std::string& text, bool in_attribute) {
  const NamedCharacter* longest = nullptr;
  for (const NamedCharacter& named : kNamedCharacters) {
    const bool is_longer = longest == nullptr || named.name.size() > longest->name.size();
    if (is_longer && rest.starts_with(named.name)) longest = &named;
  }
  if (longest == nullptr) return false;
  const std::string_view behind = rest.substr(longest->name.size());
  const bool goes_on = !behind.empty() && (behind[0] == '=' || IsLetterOrDigit(behind[0]));
  if (in_attribute && !longest->name.ends_with(';') && goes_on) return false;
  text += longest->character;
  rest = behind;
  return true;
}

std::string Decoded(std::string_view rest, bool in_attribute) {
  std::string text;
  for (std::size_t at = rest.find('&'); at != rest.npos; at = rest.find('&')) {
    text += rest.substr(0, at);
    rest.remove_prefix(at + 1);
    std::string_view digits = rest.substr(rest.starts_with('#') ? 1 : 0);
    if (rest.starts_with('#') && TakeNumericReference(digits, text)) {
      rest = digits;
    } else if (!TakeNamedReference(rest, text, in_attribute)) {
      text += '&';
    }
  }
  return text.append(rest);
}

/// Reads control by control what would be posted.
class FormReader {
 public:
  explicit FormReader(std::string_view button) : button_(button) {}

  void Read(const Element& element) {
    if (element.Is("option")) return ReadOption(element);
    if (element.Has("disabled")) {
      if (element.Is("select")) select_ = nullptr;
    } else if (element.Is("input")) {
      ReadInput(element);
    } else if (element.Is("textarea")) {
      const bool drops_line_break = element.text.starts_with('\n');
      Add(element, Decoded(element.text.substr(drops_line_break ? 1 : 0), false));
    } else if (element.Is("select")) {
      select_ = &element;
      has_option_ = false;
    }
  }

  std::vector<platform::RequestField> fields;

 private:
  void ReadInput(const Element& element) {
    const std::string_view type = element["type"];
    std::string value = Decoded(element["value"], true);
    if (type == "text") std::erase(value, '\n');
    if (type == "checkbox" && !element.Has("value")) value = "on";
    const bool is_posted = type == "submit"     ? !button_.empty() && element["name"] == button_
                           : type == "checkbox" ? element.Has("checked")
                                                : type == "text" || type == "date" || type == "hidden";
    if (is_posted) Add(element, std::move(value));
  }

  /// The first option is posted unless another one is selected, of several the last. A select without options
  /// posts nothing.
  void ReadOption(const Element& element) {
    if (select_ == nullptr || (has_option_ && !element.Has("selected"))) return;
    if (has_option_) fields.pop_back();
    has_option_ = true;
    Add(*select_, Decoded(element["value"], true));
  }

  void Add(const Element& element, std::string_view value) {
    fields.push_back({WithLineBreaks(Decoded(element["name"], true), "\r\n"), WithLineBreaks(value, "\r\n")});
  }

  std::string_view button_;
  const Element* select_ = nullptr;  ///< The one whose options are read; none while they do not count.
  bool has_option_ = false;
};

}  // namespace

std::string AsReadByBrowser(std::string_view page) {
  Utf8Decoder decoder;
  for (const char c : page) decoder.Read(static_cast<std::uint8_t>(c));
  decoder.End();
  return WithLineBreaks(decoder.text, "\n");
}

std::vector<platform::RequestField> PostedByBrowser(std::string_view page, std::string_view button) {
  const std::string html = AsReadByBrowser(page);
  FormReader reader(button);
  for (const Element& element : Elements(html)) reader.Read(element);
  return std::move(reader.fields);
}

}  // namespace dralo::tests
