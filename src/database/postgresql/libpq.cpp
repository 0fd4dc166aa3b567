#include "database/postgresql/libpq.h"

#include <dlfcn.h>

#include "dralo/error.h"

namespace dralo::database::postgresql {

namespace {

template <class Function>
void Find(void* library, const char* name, Function& function) {
  function = reinterpret_cast<Function>(dlsym(library, name));
  if (function != nullptr) return;
  throw platform::Error("PostgreSQL's client library is too old; libpq 14 or newer is needed");
}

}  // namespace

Libpq Libpq::Load() {
  void* const library = dlopen("libpq.so.5", RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    throw platform::Error("PostgreSQL's client library libpq.so.5 is missing; install the package libpq5");
  }
  Libpq libpq{};
#define DRALO_FIND(name) Find(library, #name, libpq.name);
  DRALO_LIBPQ_FUNCTIONS(DRALO_FIND)
#undef DRALO_FIND
  libpq.set_chunked_rows =
      reinterpret_cast<decltype(libpq.set_chunked_rows)>(dlsym(library, "PQsetChunkedRowsMode"));
  return libpq;
}

}  // namespace dralo::database::postgresql
