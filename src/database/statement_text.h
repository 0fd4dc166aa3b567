#pragma once

#include <string_view>

namespace dralo::database {

/// Without blanks, comments and the sign `also` at its front.
std::string_view WithoutFront(std::string_view text, char also);

/// Without ";" and blanks at the end.
std::string_view WithoutEnd(std::string_view text);

}  // namespace dralo::database
