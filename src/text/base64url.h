#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// base64url of RFC 4648 without padding: letters, digits, "-" and "_", which need no escape anywhere in a
/// page.
namespace dralo::text {

void PutBase64Url(std::span<const std::uint8_t> bytes, std::string& to);

/// Nothing when `text` is not exactly what PutBase64Url() writes for some bytes.
std::optional<std::vector<std::uint8_t>> ParseBase64Url(std::string_view text);

}  // namespace dralo::text
