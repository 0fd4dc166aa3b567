#pragma once

#include <string>
#include <string_view>

namespace dralo::database::odbc {

/// UTF-16 of a UTF-8 text. A byte that is not UTF-8 becomes U+FFFD.
std::u16string ToWide(std::string_view text);

/// Appends the UTF-8 of a UTF-16 text; half of a surrogate pair becomes U+FFFD.
void AppendNarrow(std::string& text, std::u16string_view wide);

/// UTF-8 of a UTF-16 text.
std::string ToNarrow(std::u16string_view wide);

}  // namespace dralo::database::odbc
