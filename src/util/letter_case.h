#pragma once

#include <string>
#include <string_view>

namespace dralo::util {

/// Upper- and lower-cased UTF-8 text: the letters of today's Latin, Greek, Cyrillic and Armenian alphabets
/// that have one partner in the other case; other characters, and bytes that are no UTF-8, stay as they are.
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);

/// Whether the two texts are equal when both are upper-cased.
bool EqualIgnoringCase(std::string_view left, std::string_view right);

/// Whether `text`, upper-cased, contains `word`, which is given in capital letters A to Z.
bool ContainsWord(std::string_view text, std::string_view word);

}  // namespace dralo::util
