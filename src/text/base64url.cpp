#include "text/base64url.h"

#include <cstddef>
#include <utility>

namespace dralo::text {
namespace {

constexpr std::string_view kSigns = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
constexpr unsigned kBitsOfDigit = 6;
constexpr unsigned kBitsOfByte = 8;

}  // namespace

void PutBase64Url(std::span<const std::uint8_t> bytes, std::string& to) {
  std::uint32_t bits = 0;
  unsigned count = 0;
  for (const std::uint8_t byte : bytes) {
    bits = bits << kBitsOfByte | byte;
    count += kBitsOfByte;
    for (; count >= kBitsOfDigit; count -= kBitsOfDigit) {
      to += kSigns[bits >> (count - kBitsOfDigit) & 63U];
    }
  }
  if (count > 0) to += kSigns[bits << (kBitsOfDigit - count) & 63U];
}

std::optional<std::vector<std::uint8_t>> ParseBase64Url(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  std::uint32_t bits = 0;
  unsigned count = 0;
  for (const char c : text) {
    const std::size_t digit = kSigns.find(c);
    if (digit == kSigns.npos) return std::nullopt;
    bits = bits << kBitsOfDigit | static_cast<std::uint32_t>(digit);
    count += kBitsOfDigit;
    if (count < kBitsOfByte) continue;
    count -= kBitsOfByte;
    bytes.push_back(static_cast<std::uint8_t>(bits >> count & 255U));
  }
  const bool has_rest = count >= kBitsOfDigit || (bits & ((1U << count) - 1)) != 0;
  return has_rest ? std::nullopt : std::optional(std::move(bytes));
}

}  // namespace dralo::text
