#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dralo::regional {

/// Bytes that the blank at the start of `text` takes; 0 when there is none. Blanks are the ASCII ones and
/// those that locales and word processors put in their place: no-break (U+00A0), figure (U+2007), thin
/// (U+2009), narrow no-break (U+202F) and ideographic (U+3000).
std::size_t BlankSize(std::string_view text);

/// Bytes that the invisible direction mark at the start of `text` takes (U+061C, U+200E, U+200F); 0 when
/// there is none.
std::size_t DirectionMarkSize(std::string_view text);

/// `text` without blanks and direction marks at both ends.
std::string_view TrimBlanks(std::string_view text);

/// `text` trimmed, with every blank as " " and without direction marks: the form in which texts are compared.
std::string PlainBlanks(std::string_view text);

}  // namespace dralo::regional
