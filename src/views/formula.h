#pragma once

#include <string_view>

namespace dralo::views {

/// Whether spreadsheet programs may take the text of a cell, escaped or not, for a formula: after blanks it
/// begins with one of "=", "+", "-" and "@", in full width too, or a tab or carriage return is among the
/// blanks.
bool BeginsFormula(std::string_view text);

}  // namespace dralo::views
