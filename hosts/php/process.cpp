#include "hosts/php/process.h"

#include <memory>

#include "hosts/php/engine.h"

namespace dralo::php {
namespace {

std::unique_ptr<host::Environment> environment;

}  // namespace

host::Environment& TheEnvironment() {
  if (!environment) {
    environment = std::make_unique<host::Environment>(INI_STR("dralo.locale"));
  }
  return *environment;
}

void CloseEnvironment() noexcept { environment.reset(); }

}  // namespace dralo::php
