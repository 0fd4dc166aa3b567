#pragma once

#include <ctime>

namespace dralo::tests {

/// What this process has computed so far; unlike a clock on the wall it stands still while others have the
/// processor.
inline double CpuSeconds() { return static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }

}  // namespace dralo::tests
