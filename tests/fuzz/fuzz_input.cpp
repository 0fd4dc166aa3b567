#include "fuzz/fuzz_input.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace dralo::fuzz {

void Require(bool holds, std::string_view statement) {
  if (holds) return;
  std::cerr << "Does not hold: " << statement << std::endl;
  std::abort();
}

std::string_view Parts::Next() {
  const std::size_t end = std::min(rest_.find(kSeparator), rest_.size());
  const std::string_view part = rest_.substr(0, end);
  rest_.remove_prefix(std::min(end + 1, rest_.size()));
  return part;
}

std::size_t Parts::Choose(std::size_t choices) {
  if (rest_.empty()) return 0;
  const auto byte = static_cast<unsigned char>(rest_[0] - '0');
  rest_.remove_prefix(1);
  return byte % choices;
}

}  // namespace dralo::fuzz
