#pragma once

#include <string>
#include <string_view>

namespace dralo::text {

/// Upper- and lower-cased UTF-8 text: letters of Unicode that have a single partner in the other case change,
/// other characters, and bytes that are no UTF-8, do not. The same in all languages. A text may become longer
/// or shorter: the capital of "ı", two bytes, is "I".
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);

/// The same, appended to `to`, of which `text` must be no part.
void AppendUpper(std::string& to, std::string_view text);
void AppendLower(std::string& to, std::string_view text);

/// Whether the two texts are equal when both are upper-cased.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

}  // namespace dralo::text
