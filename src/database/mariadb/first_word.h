#pragma once

#include <string_view>

namespace dralo::database::mariadb {

/// The text of a statement from its first word on, without the blanks, "(" and comments before it. Some
/// comments begin with "#" here.
std::string_view FromFirstWord(std::string_view text);

}  // namespace dralo::database::mariadb
