#include "database/postgresql/reader.h"

#include <algorithm>
#include <cstdint>
#include <variant>

#include "database/money_text.h"
#include "database/text_reading.h"
#include "text/ascii.h"

namespace dralo::database::postgresql {

namespace {

using platform::VariantView;

/// The older spelling: "\\" for a backslash, "\377" for a byte that is no ASCII character.
void Unescape(std::string_view text, std::string& bytes) {
  bytes.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_octal = text[i] == '\\' && i + 3 < text.size() && text::IsDigit(text[i + 1]);
    if (is_octal) {
      bytes += static_cast<char>((text[i + 1] - '0') << 6 | (text[i + 2] - '0') << 3 | (text[i + 3] - '0'));
      i += 3;
    } else {
      if (text[i] == '\\') ++i;
      if (i < text.size()) bytes += text[i];
    }
  }
}

}  // namespace

VariantView ReadInteger(std::string_view text, std::string& /*unused*/) {
  return ReadNumber<std::int64_t>(text);
}

VariantView ReadReal(std::string_view text, std::string& /*unused*/) { return ReadNumber<double>(text); }

VariantView ReadBoolean(std::string_view text, std::string& /*unused*/) { return text == "t"; }

VariantView ReadNumeric(std::string_view text, std::string& /*unused*/) { return ReadDecimal(text); }

VariantView ReadAmount(std::string_view text, std::string& scratch) { return ReadMoney(text, scratch); }

VariantView ReadDay(std::string_view text, std::string& /*unused*/) { return ReadDate(text); }

VariantView ReadZonedDay(std::string_view text, std::string& /*unused*/) {
  const auto zone = text.find_first_of("+-", std::min(sizeof "YYYY-MM-DD", text.size()));
  const bool has_zone = zone != text.npos && !text.ends_with("BC");
  const VariantView value = ReadDate(has_zone ? text.substr(0, zone) : text);
  return std::holds_alternative<platform::DateTime>(value) ? value : text;
}

VariantView ReadTime(std::string_view text, std::string& /*unused*/) { return ReadTimeOfDay(text); }

VariantView ReadText(std::string_view text, std::string& /*unused*/) { return text; }

VariantView ReadBytes(std::string_view text, std::string& scratch) {
  if (text.starts_with("\\x")) {
    text.remove_prefix(2);
    scratch.resize(text.size() / 2);
    for (std::size_t i = 0; i < scratch.size(); ++i) {
      scratch[i] = static_cast<char>(text::HexDigit(text[2 * i]) << 4 | text::HexDigit(text[2 * i + 1]));
    }
  } else {
    Unescape(text, scratch);
  }
  return platform::BytesView{reinterpret_cast<const std::uint8_t*>(scratch.data()), scratch.size()};
}

}  // namespace dralo::database::postgresql
