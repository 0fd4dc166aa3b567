#pragma once

#include <string>
#include <string_view>

namespace dralo::text {

/// A text without small letters with small ones instead, except its first character. A text that has small
/// letters comes back as it is.
std::string CapitaliseFirst(std::string_view text);

/// The same, except the first character of every word; words are separated by one blank each. A blank is put
/// before the first word as well: "JOHN SMITH" is " John Smith", "123" is " 123".
std::string CapitaliseWords(std::string_view text);

}  // namespace dralo::text
