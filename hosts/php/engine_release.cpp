#include "hosts/php/engine_release.h"

#include <string_view>

#include "hosts/php/engine.h"

namespace dralo::php {
namespace {

// Volatile, so that a test can change the version in the file.
const volatile char stamp[] = "Dralo is compiled for PHP " PHP_VERSION;
constexpr std::size_t kVersionAt = std::string_view("Dralo is compiled for PHP ").size();

std::string_view MinorRelease(std::string_view version) {
  return version.substr(0, version.find('.', version.find('.') + 1));
}

std::string CompareReleases() {
  const zval* constant = zend_get_constant_str(ZEND_STRL("PHP_VERSION"));
  const std::string running = constant == nullptr ? "of an unknown release" : Z_STRVAL_P(constant);
  const std::string compiled_for = CompiledFor();
  if (MinorRelease(running) == MinorRelease(compiled_for)) return {};
  return "Dralo was compiled for PHP " + compiled_for + " and does not run with PHP " + running +
         ": build it for this release of PHP and start PHP again";
}

}  // namespace

std::string CompiledFor() {
  std::string version;
  for (std::size_t position = kVersionAt; stamp[position] != '\0'; ++position) version += stamp[position];
  return version;
}

const std::string& WhyNotHere() {
  static const std::string reason = CompareReleases();
  return reason;
}

}  // namespace dralo::php
