#include "hosts/cpp/providers.h"

#include <array>

#include "database/sqlite/provider.h"
#if !defined(DRALO_HAS_POSTGRESQL) || !defined(DRALO_HAS_MARIADB) || !defined(DRALO_HAS_ODBC)
#include "database/absent_provider.h"
#endif
#ifdef DRALO_HAS_POSTGRESQL
#include "database/postgresql/provider.h"
#endif
#ifdef DRALO_HAS_MARIADB
#include "database/mariadb/provider.h"
#endif
#ifdef DRALO_HAS_ODBC
#include "database/odbc/provider.h"
#endif

namespace dralo::host {

database::Providers AllProviders() {
  static const database::sqlite::Provider sqlite;
#ifdef DRALO_HAS_POSTGRESQL
  static const database::postgresql::Provider postgresql;
#else
  static const database::AbsentProvider postgresql({"PostgreSQL"}, "DRALO_POSTGRESQL");
#endif
#ifdef DRALO_HAS_MARIADB
  static const database::mariadb::Provider mariadb;
#else
  static const database::AbsentProvider mariadb({"MariaDB", "MySQL"}, "DRALO_MARIADB");
#endif
#ifdef DRALO_HAS_ODBC
  static const database::odbc::Provider odbc;
#else
  static const database::AbsentProvider odbc({database::kDriverProvider}, "DRALO_ODBC");
#endif
  static const std::array<const database::Provider*, 4> providers = {&sqlite, &postgresql, &mariadb, &odbc};
  return providers;
}

}  // namespace dralo::host
