#pragma once

#include <string_view>

namespace dralo::views {

/// Whether spreadsheet programs may take the text of a cell, escaped or not, for a formula: behind blanks it
/// begins with one of "=", "+", "-" and "@", in their full width too, or there is a tab or carriage return
/// among the blanks.
bool BeginsFormula(std::string_view text);

}  // namespace dralo::views
