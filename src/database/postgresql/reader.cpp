#include "database/postgresql/reader.h"

#include <algorithm>
#include <cstdint>

#include "database/money_text.h"
#include "text/ascii.h"
#include "text/decimal.h"
#include "text/iso_date.h"

namespace dralo::database::postgresql {

namespace {

using platform::VariantView;

template <class Number>
VariantView ReadNumber(std::string_view text) {
  const auto number = text::ParseNumber<Number>(text);
  return number ? VariantView(*number) : text;
}

VariantView ReadDecimal(std::string_view text) {
  return text::IsPlainDecimal(text) ? VariantView(platform::DecimalView{text}) : text;
}

/// A text that is no day of the calendar stays a text.
VariantView ReadDate(std::string_view text) {
  const auto time = text::ParseIsoDateTime(text);
  return time ? VariantView(*time) : text;
}

/// Ignores the offset of a time zone, as in "10:20:30+02".
VariantView ReadZonedDate(std::string_view text) {
  const auto zone = text.find_first_of("+-", std::min(sizeof "YYYY-MM-DD", text.size()));
  const bool has_zone = zone != text.npos && !text.ends_with("BC");
  const auto time = text::ParseIsoDateTime(has_zone ? text.substr(0, zone) : text);
  return time ? VariantView(*time) : text;
}

VariantView ReadTime(std::string_view text) {
  const auto time = text::ParseTimeOfDay(text);
  return time ? VariantView(*time) : text;
}

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

}  // namespace

VariantView Read(Reading reading, std::string_view text, std::string& scratch) {
  switch (reading) {
    case Reading::kInteger:
      return ReadNumber<std::int64_t>(text);
    case Reading::kDouble:
      return ReadNumber<double>(text);
    case Reading::kBoolean:
      return text == "t";
    case Reading::kDecimal:
      return ReadDecimal(text);
    case Reading::kMoney:
      return ReadMoney(text, scratch);
    case Reading::kDate:
      return ReadDate(text);
    case Reading::kZonedDate:
      return ReadZonedDate(text);
    case Reading::kTime:
      return ReadTime(text);
    case Reading::kText:
      return text;
    case Reading::kBytes:
      return ReadBytes(text, scratch);
  }
  return text;
}

}  // namespace dralo::database::postgresql
