#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace dralo::regional {

/// Appends `replacement` to `result`, with "$1" to "$99", "$&" and "$$" replaced by what they stand for.
/// `groups` are the start and end in `text` of the whole match and of every group of the expression; a group
/// that took no part has a start beyond the end of `text`.
void AppendReplacement(std::string_view replacement, std::string_view text,
                       std::span<const std::size_t> groups, std::string& result);

}  // namespace dralo::regional
