#pragma once

#include <string>
#include <string_view>

namespace dralo::text {

/// Upper- and lower-cased UTF-8 text: every letter of Unicode that has one partner in the other case; other
/// characters, and bytes that are no UTF-8, stay as they are. The same in all languages. A text may become
/// longer or shorter: the capital of the two bytes "ı" is "I".
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);

/// The same behind what stands in `to`, of which `text` must be no part.
void AppendUpper(std::string& to, std::string_view text);
void AppendLower(std::string& to, std::string_view text);

/// Whether the two texts are equal when both are upper-cased.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

}  // namespace dralo::text
