#include "hosts/cpp/libraries.h"

#include "hosts/cpp/providers.h"
#include "regional/libraries.h"

namespace dralo::host {
namespace {

std::vector<LibraryInUse> AskLibraries() {
  std::vector<LibraryInUse> libraries;
  for (const database::Provider* provider : AllProviders()) {
    libraries.push_back({"Provider " + std::string(provider->Name()), provider->Library()});
  }
  libraries.push_back({"Regional settings", "ICU " + regional::IcuVersion()});
  libraries.push_back({"Regular expressions", "PCRE2 " + regional::Pcre2Version()});
  return libraries;
}

}  // namespace

const std::vector<LibraryInUse>& LibrariesInUse() {
  static const std::vector<LibraryInUse> libraries = AskLibraries();
  return libraries;
}

}  // namespace dralo::host
