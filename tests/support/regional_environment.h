#pragma once

#include "hosts/cpp/environment.h"

namespace dralo::tests {

/// The services of the test program with the regional settings of the United States.
inline host::Environment& AmericanEnvironment() {
  static host::Environment environment("en-US");
  return environment;
}

}  // namespace dralo::tests
