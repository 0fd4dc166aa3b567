#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace dralo::text {

/// The hash SHA-256 of FIPS 180-4, of a text that may come in pieces.
class Sha256 {
 public:
  using Digest = std::array<std::uint8_t, 32>;

  Sha256& Add(std::string_view piece);

  /// The hash of all pieces. Nothing may be added afterwards.
  Digest Finish();

 private:
  static constexpr std::size_t kBlockSize = 64;

  void AddBlock(const std::uint8_t* block);

  std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  std::array<std::uint8_t, kBlockSize> block_{};  ///< The last bytes, which do not fill a block yet.
  std::uint64_t bytes_ = 0;
};

}  // namespace dralo::text
