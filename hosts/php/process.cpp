#include "hosts/php/process.h"

#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "database/objects.h"
#include "dralo/error.h"
#include "hosts/php/engine.h"
#include "text/decimal.h"

namespace dralo::php {
namespace {

std::unique_ptr<host::Environment> environment;

/// The ini setting `name`, a whole number from 0 to `highest`.
unsigned NumberSetting(const std::string& name, const char* text, unsigned highest) {
  const std::string_view digits(text == nullptr ? "" : text);
  const auto number = text::ParseNumber<unsigned>(digits);
  if (!number || *number > highest) {
    throw platform::Error("The setting " + name + " is \"" + std::string(digits) +
                          "\": write a whole number from 0 to " + std::to_string(highest));
  }
  return *number;
}

void LimitIdleConnections() {
  const unsigned number = NumberSetting("dralo.pool_size", INI_STR("dralo.pool_size"), 1'000);
  const unsigned seconds =
      NumberSetting("dralo.pool_idle_seconds", INI_STR("dralo.pool_idle_seconds"), 1'000'000);
  database::LimitIdleConnections(number, std::chrono::seconds{seconds});
}

}  // namespace

host::Environment& TheEnvironment() {
  if (!environment) {
    auto made = std::make_unique<host::Environment>(INI_STR("dralo.locale"));
    LimitIdleConnections();
    environment = std::move(made);
  }
  return *environment;
}

void CloseEnvironment() noexcept { environment.reset(); }

}  // namespace dralo::php
