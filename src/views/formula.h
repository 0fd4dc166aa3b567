#pragma once

#include <array>
#include <string_view>

namespace dralo::views {

/// The first bytes of all that FormulaFollows() knows.
inline constexpr auto kFormulaStarts = [] {
  std::array<bool, 256> starts{};
  for (const char c : std::string_view("=+-@\t\r \n&\xC2\xE2\xE3\xEF"))
    starts[static_cast<unsigned char>(c)] = true;
  return starts;
}();

/// BeginsFormula() of a text that begins with one of kFormulaStarts; in HTML also "&nbsp;" is a blank.
bool FormulaFollows(std::string_view text, bool is_html);

/// Whether spreadsheet programs may take the HTML of a cell for a formula: after blanks it begins with one of
/// "=", "+", "-" and "@", in full width too, or a tab or carriage return is among the blanks. Nearly all
/// texts are known by their first byte.
inline bool BeginsFormula(std::string_view html) {
  return !html.empty() && kFormulaStarts[static_cast<unsigned char>(html[0])] && FormulaFollows(html, true);
}

/// The same for a value that is still to be escaped.
inline bool ValueBeginsFormula(std::string_view value) {
  return !value.empty() && kFormulaStarts[static_cast<unsigned char>(value[0])] &&
         FormulaFollows(value, false);
}

}  // namespace dralo::views
