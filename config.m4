dnl phpize && ./configure && make && make install: the extension as PHP's own tools build it.
dnl The sources are those of the CMake build. phpize and CMake both write to build/: use a copy of the sources for each.

dnl DRALO_NEEDS(NAME, MODULES, PACKAGES): a library that has to be there; PACKAGES are what Debian calls its headers.
AC_DEFUN([DRALO_NEEDS], [
  PKG_CHECK_MODULES([DRALO_$1], [$2], [],
    [AC_MSG_ERROR([Dralo needs $2, which pkg-config does not find: install $3 or the like])])
  PHP_EVAL_INCLINE([$DRALO_$1_CFLAGS])
  PHP_EVAL_LIBLINE([$DRALO_$1_LIBS], [DRALO_SHARED_LIBADD])
])

dnl DRALO_DATABASE(NAME, name, MODULES, PACKAGES, [WHEN-TAKEN]): the provider in src/database/name. "auto" takes it when its
dnl headers are there. Sets DRALO_NAME_LIBS.
AC_DEFUN([DRALO_DATABASE], [
  if test "$PHP_DRALO_$1" != "no"; then
    PKG_CHECK_MODULES([DRALO_$1], [$3], [
      PHP_EVAL_INCLINE([$DRALO_$1_CFLAGS])
      dralo_folders="$dralo_folders src/database/$2"
      dralo_flags="$dralo_flags -DDRALO_HAS_$1"
      $5
    ], [
      if test "$PHP_DRALO_$1" != "auto"; then
        AC_MSG_ERROR([--with-dralo-$2 needs $3, which pkg-config does not find: install $4 or the like, or say --without-dralo-$2])
      fi
    ])
  fi
])

PHP_ARG_ENABLE([dralo],
  [whether to enable Dralo],
  [AS_HELP_STRING([--enable-dralo], [Enable Dralo: database queries as web pages])])
PHP_ARG_WITH([dralo-odbc],
  [for Dralo's databases behind ODBC drivers],
  [AS_HELP_STRING([--with-dralo-odbc], [Dralo: databases behind ODBC drivers, by unixODBC; default: when its headers are there])],
  [auto], [no])
PHP_ARG_WITH([dralo-postgresql],
  [for Dralo's PostgreSQL],
  [AS_HELP_STRING([--with-dralo-postgresql], [Dralo: PostgreSQL, by libpq; default: when its headers are there])],
  [auto], [no])
PHP_ARG_WITH([dralo-mariadb],
  [for Dralo's MariaDB and MySQL],
  [AS_HELP_STRING([--with-dralo-mariadb], [Dralo: MariaDB and MySQL, by libmariadb; default: when its headers are there])],
  [auto], [no])

if test "$PHP_DRALO" != "no"; then
  dralo_php=$($PHP_CONFIG --vernum)
  if test "$dralo_php" -lt 80200 || test "$dralo_php" -ge 80500; then
    AC_MSG_ERROR([Dralo is made for PHP 8.2 to 8.4, and $PHP_CONFIG belongs to PHP $($PHP_CONFIG --version): name another one by --with-php-config])
  fi
  if test -z "$PKG_CONFIG"; then
    AC_MSG_ERROR([Dralo finds its libraries by pkg-config, which is missing: install pkg-config])
  fi
  PHP_REQUIRE_CXX()
  PHP_CXX_COMPILE_STDCXX([20], [mandatory], [DRALO_STANDARD])

  dralo_folders="hosts/php hosts/cpp src/cells src/component src/database src/database/sqlite src/driver src/editing src/html \
    src/regional src/settings src/state src/text src/views"
  dralo_version=$(sed -n 's/^project(dralo VERSION \([[0-9.]]*\) .*/\1/p' "$abs_srcdir/CMakeLists.txt")
  dralo_flags="$DRALO_STANDARD -fvisibility=hidden -fvisibility-inlines-hidden -DZEND_ENABLE_STATIC_TSRMLS_CACHE=1"
  dralo_flags="$dralo_flags -DDRALO_VERSION=$dralo_version -I@ext_srcdir@ -I@ext_srcdir@/include -I@ext_srcdir@/src"

  DRALO_NEEDS([SQLITE], [sqlite3 >= 3.40], [libsqlite3-dev])
  DRALO_NEEDS([ICU], [icu-i18n icu-uc], [libicu-dev])
  DRALO_NEEDS([PCRE2], [libpcre2-8], [libpcre2-dev])
  DRALO_DATABASE([ODBC], [odbc], [odbc odbcinst], [unixodbc-dev],
    [PHP_EVAL_LIBLINE([$DRALO_ODBC_LIBS], [DRALO_SHARED_LIBADD])])
  dnl The libraries of these two are looked up when a page needs them: only the headers count.
  DRALO_DATABASE([POSTGRESQL], [postgresql], [libpq >= 14], [libpq-dev])
  DRALO_DATABASE([MARIADB], [mariadb], [libmariadb], [libmariadb-dev])

  dralo_sources=$(cd "$abs_srcdir" && for folder in $dralo_folders; do echo "$folder"/*.cpp; done | tr '\n' ' ')
  PHP_NEW_EXTENSION([dralo], [$dralo_sources], [$ext_shared],, [$dralo_flags], [cxx])
  for folder in $dralo_folders; do
    PHP_ADD_BUILD_DIR([$ext_builddir/$folder])
  done
  dnl PHP loads extensions with their symbols visible to all others: only the entry point may be.
  DRALO_SHARED_LIBADD="$DRALO_SHARED_LIBADD -ldl -Wl,--version-script=$abs_srcdir/hosts/php/exports.map -Wl,-z,now"
  PHP_SUBST([DRALO_SHARED_LIBADD])
  PHP_SUBST([datarootdir])
  PHP_SUBST([datadir])
  PHP_ADD_MAKEFILE_FRAGMENT([$abs_srcdir/hosts/php/install.mk])
fi
