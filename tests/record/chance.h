#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace dralo::record {

/// Numbers that look random and depend on the seed alone, on every machine and with every standard library.
/// Calls that stand in one expression, other than braces, have no order: draw into variables first.
class Chance {
 public:
  explicit Chance(std::uint64_t seed) : state_(seed) {}

  /// From 0 to `bound` - 1.
  std::size_t Below(std::size_t bound) { return static_cast<std::size_t>(Next() % bound); }

  bool Percent(std::size_t percent) { return Below(100) < percent; }

  template <class List>
  const auto& Pick(const List& list) {
    return list[Below(std::size(list))];
  }

 private:
  /// SplitMix64: short, and every seed is as good as any other.
  std::uint64_t Next() {
    std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15U;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }

  std::uint64_t state_;
};

using Texts = std::span<const std::string_view>;

}  // namespace dralo::record
