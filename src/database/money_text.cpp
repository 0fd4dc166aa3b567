#include "database/money_text.h"

#include "text/ascii.h"
#include "text/decimal.h"

namespace dralo::database {

platform::VariantView ReadMoney(std::string_view text, std::string& scratch) {
  auto point = text.find_last_of(".,");
  const auto is_digit = [&](std::size_t at) { return at < text.size() && text::IsDigit(text[at]); };
  if (point != text.npos && is_digit(point + 3)) point = text.npos;
  scratch = text.find_first_of("-(") == text.npos ? "" : "-";
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (i == point) scratch += '.';
    if (is_digit(i)) scratch += text[i];
  }
  return text::IsPlainDecimal(scratch) ? platform::VariantView(platform::DecimalView{scratch}) : text;
}

}  // namespace dralo::database
