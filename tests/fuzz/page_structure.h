#pragma once

#include <string>
#include <string_view>

namespace dralo::fuzz {

/// What a browser's tokenizer makes of a piece of a page but for texts and values: a line for each tag with
/// the names of its attributes, one for each comment, and one at the end that says where it ends. Values that
/// can neither leave their places nor begin anything leave it as it is.
std::string StructureOf(std::string_view html);

}  // namespace dralo::fuzz
