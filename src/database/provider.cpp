#include "database/provider.h"

#include <algorithm>

#include "dralo/error.h"
#include "text/ascii.h"

namespace dralo::database {
namespace {

std::string Examples(Providers providers) {
  std::string examples;
  for (const Provider* provider : providers) {
    if (provider->Example().empty()) continue;
    examples.append(examples.empty() ? "" : ", or ").append(provider->Example());
  }
  return examples;
}

}  // namespace

bool Provider::IsCalled(std::string_view name) const { return text::EqualAscii(name, Name()); }

/// Made of the pairs as they were given: reading them as options would cost every page more than the rest of
/// its opening.
std::string Provider::PoolKey(const ConnectionString& connection_string) const {
  return std::string(Name()) + ";" + connection_string.Identity();
}

const Provider& FindProvider(Providers providers, const ConnectionString& connection_string) {
  auto name = connection_string.Find("Provider");
  if (connection_string.Find("Driver") || connection_string.Find("DSN")) name = kDriverProvider;
  if (!name) {
    throw platform::Error("The connection string names no provider; write " + Examples(providers));
  }
  const auto found =
      std::ranges::find_if(providers, [&](const Provider* provider) { return provider->IsCalled(*name); });
  if (found == providers.end()) {
    throw platform::Error("The connection string names an unknown provider; write " +
                          Examples(providers.first(1)));
  }
  return **found;
}

}  // namespace dralo::database
