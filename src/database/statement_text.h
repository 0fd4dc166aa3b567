#pragma once

#include <string_view>

namespace dralo::database {

/// The text without the blanks, comments and characters `also` at its front.
std::string_view WithoutFront(std::string_view text, char also);

/// The text without ";" and blanks at its end.
std::string_view WithoutEnd(std::string_view text);

}  // namespace dralo::database
