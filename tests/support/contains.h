#pragma once

#include <string_view>

namespace dralo::tests {

inline bool Contains(std::string_view text, std::string_view part) { return text.find(part) != text.npos; }

}  // namespace dralo::tests
