#pragma once

#include <cstddef>
#include <string>

namespace dralo::regional {

/// Room for `size` bytes in `scratch`, which is never made smaller: one that is used again and again costs
/// neither an allocation nor filling with zeros.
inline char* Room(std::string& scratch, std::size_t size) {
  if (scratch.size() < size) scratch.resize(size);
  return scratch.data();
}

}  // namespace dralo::regional
