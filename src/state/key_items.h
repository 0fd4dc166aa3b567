#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::state {

/// The item of a key of several columns as hardened pages write it: "%", "," and control characters are
/// percent-encoded, so that the items stay apart whatever they hold.
std::string KeyItem(std::string_view text);

/// The key of a record as a hardened page writes it, of the texts of its columns' values.
std::string KeyOfItems(std::span<const std::string> texts);

/// The texts of the columns' values in a key that a hardened page has written; a key of one column stands as
/// it is. Nothing when there are more or less items than `count`, or an item is not written in that way.
std::optional<std::vector<std::string>> KeyItems(std::string_view key, std::size_t count);

}  // namespace dralo::state
