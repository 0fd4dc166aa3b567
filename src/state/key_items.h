#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::state {

/// One column's part of a key of several columns, as hardened pages write it: "%", "," and control characters
/// are percent-encoded, so that the parts stay apart whatever they hold.
std::string KeyItem(std::string_view text);

/// The key of a record as a hardened page writes it, made of the key texts of its columns.
std::string KeyOfItems(std::span<const std::string> texts);

/// The key texts of the columns in a key that a hardened page has written; a key of one column is not
/// encoded. Nothing when there are not exactly `count` items, or an item is not written in that way.
std::optional<std::vector<std::string>> KeyItems(std::string_view key, std::size_t count);

}  // namespace dralo::state
