#include "hosts/cpp/providers.h"

#include <array>

#include "database/sqlite/provider.h"
#ifdef DRALO_HAS_ODBC
#include "database/odbc/provider.h"
#else
#include "database/absent_provider.h"
#endif

namespace dralo::host {

database::Providers AllProviders() {
  static const database::sqlite::Provider sqlite;
#ifdef DRALO_HAS_ODBC
  static const database::odbc::Provider odbc;
#else
  static const database::AbsentProvider odbc({database::kDriverProvider}, "DRALO_ODBC");
#endif
  static const std::array<const database::Provider*, 2> providers = {&sqlite, &odbc};
  return providers;
}

}  // namespace dralo::host
