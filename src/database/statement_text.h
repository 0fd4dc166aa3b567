#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dralo::database {

/// The text without the blanks, comments and characters `also` at its front.
std::string_view WithoutFront(std::string_view text, char also);

/// The text from its first word on, without the blanks, "(" and comments before it. Some databases take "#"
/// for the start of a comment; for the others no statement begins so.
std::string_view FromFirstWord(std::string_view text);

/// The text without ";" and blanks at its end.
std::string_view WithoutEnd(std::string_view text);

/// `pattern` with `text` for every `sign`.
std::string Filled(std::string_view pattern, char sign, std::string_view text);

/// Throws platform::Error when the text is blank or has a zero byte, which client libraries take for its end.
void RequireStatement(std::string_view text);

/// Throws platform::Error when a statement is given another number of parameter values than it expects.
void RequireEqualCounts(std::size_t expected, std::size_t given, std::string_view text);

}  // namespace dralo::database
