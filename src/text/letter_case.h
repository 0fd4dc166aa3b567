#pragma once

#include <cstddef>
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

/// Where `word`, which is given in capital letters A to Z, stands in `text` in any letter case; npos when it
/// does not. Only the letters A to Z count: this is for the words of markup, statements and options.
std::size_t FindWord(std::string_view text, std::string_view word);

/// Whether it stands there.
bool ContainsWord(std::string_view text, std::string_view word);

}  // namespace dralo::text
