#include "database/mariadb/library.h"

#include <dlfcn.h>

#include "dralo/error.h"

namespace dralo::database::mariadb {

namespace {

template <class Function>
void Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  if (function != nullptr) return;
  throw platform::Error("MariaDB's client library is too old; libmariadb 3.3 or newer is needed");
}

/// The library must not be used for the first time by several threads at once.
Library Load() {
  void* const library = dlopen("libmariadb.so.3", RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    throw platform::Error(
        "MariaDB's client library libmariadb.so.3 is missing; install the package libmariadb3");
  }
  Library loaded{};
#define DRALO_FIND(name) Find(library, #name, loaded.name);
  DRALO_MARIADB_FUNCTIONS(DRALO_FIND)
#undef DRALO_FIND
  loaded.mysql_server_init(0, nullptr, nullptr);
  return loaded;
}

}  // namespace

const Library& Library::Get() {
  static const Library library = Load();
  return library;
}

}  // namespace dralo::database::mariadb
