#include "text/sha256.h"

#include <algorithm>
#include <bit>

namespace dralo::text {
namespace {

constexpr std::array<std::uint32_t, 64> kRoundConstants = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

using Schedule = std::array<std::uint32_t, 64>;

std::uint32_t BigEndian(const std::uint8_t* bytes) {
  return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
         std::uint32_t{bytes[3]};
}

Schedule ScheduleOf(const std::uint8_t* block) {
  Schedule words{};
  for (std::size_t i = 0; i < 16; ++i) words[i] = BigEndian(block + 4 * i);
  for (std::size_t i = 16; i < words.size(); ++i) {
    const std::uint32_t early = words[i - 15];
    const std::uint32_t late = words[i - 2];
    words[i] = words[i - 16] + words[i - 7] + (std::rotr(early, 7) ^ std::rotr(early, 18) ^ early >> 3) +
               (std::rotr(late, 17) ^ std::rotr(late, 19) ^ late >> 10);
  }
  return words;
}

}  // namespace

void Sha256::AddBlock(const std::uint8_t* block) {
  const Schedule words = ScheduleOf(block);
  auto [a, b, c, d, e, f, g, h] = state_;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::uint32_t choice = (e & f) ^ (~e & g);
    const std::uint32_t majority = (a & b) ^ (a & c) ^ (b & c);
    const std::uint32_t first =
        h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) + choice + kRoundConstants[i] + words[i];
    const std::uint32_t second = (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + majority;
    h = g;
    g = f;
    f = e;
    e = d + first;
    d = c;
    c = b;
    b = a;
    a = first + second;
  }
  const std::array<std::uint32_t, 8> added = {a, b, c, d, e, f, g, h};
  for (std::size_t i = 0; i < state_.size(); ++i) state_[i] += added[i];
}

Sha256& Sha256::Add(std::string_view piece) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(piece.data());
  std::size_t left = piece.size();
  while (left > 0) {
    const std::size_t filled = bytes_ % kBlockSize;
    const std::size_t taken = std::min(left, kBlockSize - filled);
    if (taken == kBlockSize) {
      AddBlock(bytes);
    } else {
      std::copy_n(bytes, taken, block_.begin() + filled);
      if (filled + taken == kBlockSize) AddBlock(block_.data());
    }
    bytes_ += taken;
    bytes += taken;
    left -= taken;
  }
  return *this;
}

Sha256::Digest Sha256::Finish() {
  const std::uint64_t bits = bytes_ * 8;
  constexpr std::size_t kLengthSize = 8;
  std::array<char, kBlockSize + kLengthSize> padding{};
  padding[0] = '\x80';
  // The length stands at the end of the last block.
  const std::size_t zeros = (2 * kBlockSize - kLengthSize - 1 - bytes_ % kBlockSize) % kBlockSize;
  for (std::size_t i = 0; i < kLengthSize; ++i) {
    padding[1 + zeros + i] = static_cast<char>(bits >> (8 * (kLengthSize - 1 - i)) & 0xFF);
  }
  Add({padding.data(), 1 + zeros + kLengthSize});
  Digest digest{};
  for (std::size_t i = 0; i < digest.size(); ++i) {
    digest[i] = static_cast<std::uint8_t>(state_[i / 4] >> (24 - 8 * (i % 4)) & 0xFF);
  }
  return digest;
}

}  // namespace dralo::text
