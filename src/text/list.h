#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::text {

/// The items between the separators, untrimmed; an empty text has one empty item.
std::vector<std::string> Split(std::string_view text, std::string_view separator = ",");

/// The 1-based position of the first item of the comma list that equals `text` without regard to letter case;
/// neither is trimmed. 0 when there is none, or when the list or the text is blank.
std::int16_t FindInList(std::string_view list, std::string_view text);

/// FindInList() of the number as decimal text.
std::int16_t FindInList(std::string_view list, int number);

/// The n-th item (from 1) of the comma list, untrimmed; empty when the list has fewer.
std::string_view NthItem(std::string_view list, int n);

/// How many separators the list has: one less than its items, unless it is empty.
std::int16_t CountOf(std::string_view list, char separator);

}  // namespace dralo::text
