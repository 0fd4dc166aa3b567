#pragma once

#include <string>
#include <string_view>

namespace dralo::text {

/// If the text has no lower-case letters, all characters but the first are made lower case. Other texts come
/// back unchanged.
std::string CapitaliseFirst(std::string_view text);

/// The same, but keeps the first character of every word; words are separated by single blanks. A blank is
/// put before the first word too: "JOHN SMITH" becomes " John Smith", "123" becomes " 123".
std::string CapitaliseWords(std::string_view text);

}  // namespace dralo::text
