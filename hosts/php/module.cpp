#include "database/interruption.h"
#include "database/objects.h"
#include "hosts/cpp/libraries.h"
#include "hosts/php/classes.h"
#include "hosts/php/engine_release.h"
#include "hosts/php/errors.h"
#include "hosts/php/guard.h"
#include "hosts/php/multipart.h"
#include "hosts/php/native_object.h"
#include "hosts/php/object_handlers.h"
#include "hosts/php/process.h"
#include "hosts/php/request_end.h"

#include "hosts/php/thread_state.h"

ZEND_DECLARE_MODULE_GLOBALS(dralo)
#ifdef ZTS
ZEND_TSRMLS_CACHE_DEFINE()
#endif

namespace dralo::php {
namespace {

// Given without quotes, which not every build system passes on.
constexpr const char* kVersion = ZEND_TOSTR(DRALO_VERSION);

PHP_INI_BEGIN()
PHP_INI_ENTRY("dralo.hardened", "0", PHP_INI_PERDIR, nullptr)
PHP_INI_ENTRY("dralo.hosts", "", PHP_INI_SYSTEM, nullptr)
PHP_INI_ENTRY("dralo.locale", "", PHP_INI_PERDIR, nullptr)
PHP_INI_ENTRY("dralo.pool_idle_seconds", "60", PHP_INI_SYSTEM, nullptr)
PHP_INI_ENTRY("dralo.pool_size", "8", PHP_INI_SYSTEM, nullptr)
PHP_INI_ENTRY("dralo.trusted_origins", "", PHP_INI_SYSTEM, nullptr)
PHP_INI_END()

PHP_MINIT_FUNCTION(dralo) {
  (void)type;
  RegisterException();
  if (!WhyNotHere().empty()) {
    // A module that fails to start keeps PHP from starting, and with it every other site of the machine.
    zend_error(E_CORE_WARNING, "%s", WhyNotHere().c_str());
    RegisterRefusingClasses();
    return SUCCESS;
  }
  REGISTER_INI_ENTRIES();
  SetUpObjectHandlers();
  RegisterClasses();
  ListenToMultipart();
  ListenToRequestEnd();
  database::StopStatementsWhen(HasTimedOut);
  return SUCCESS;
}

PHP_MSHUTDOWN_FUNCTION(dralo) {
  (void)type;
  database::StopStatementsWhen(nullptr);
  StopListeningToRequestEnd();
  StopListeningToMultipart();
  CloseEnvironment();
  database::CloseIdleConnections();
  UNREGISTER_INI_ENTRIES();
  return SUCCESS;
}

PHP_RINIT_FUNCTION(dralo) {
  (void)type;
  (void)module_number;
#ifdef ZTS
  ZEND_TSRMLS_CACHE_UPDATE();
#endif
  return SUCCESS;
}

PHP_RSHUTDOWN_FUNCTION(dralo) {
  (void)type;
  (void)module_number;
  EndPageOfAllObjects();
  return SUCCESS;
}

zend_result AfterRequest() {
  EndRequest();
  return SUCCESS;
}

PHP_MINFO_FUNCTION(dralo) {
  php_info_print_table_start();
  php_info_print_table_row(2, "Dralo", WhyNotHere().empty() ? "enabled" : WhyNotHere().c_str());
  php_info_print_table_row(2, "Version", kVersion);
  php_info_print_table_row(2, "Compiled for PHP", CompiledFor().c_str());
  php_info_print_table_row(2, "PHP API", ZEND_TOSTR(PHP_API_VERSION));
  for (const host::LibraryInUse& used : host::LibrariesInUse()) {
    php_info_print_table_row(2, used.part.c_str(), used.library.c_str());
  }
  php_info_print_table_end();
  DISPLAY_INI_ENTRIES();
}

// What its classes and values are made of; without these the engine says which is missing.
const zend_module_dep kDependencies[] = {ZEND_MOD_REQUIRED("date") ZEND_MOD_REQUIRED("spl") ZEND_MOD_END};

/// Before the first request of a thread, whose multipart form is read before any module is told of it.
PHP_GINIT_FUNCTION(dralo) {
#ifdef ZTS
  ZEND_TSRMLS_CACHE_UPDATE();
#endif
  dralo_globals->state = new ThreadState();
}

PHP_GSHUTDOWN_FUNCTION(dralo) { delete dralo_globals->state; }

}  // namespace

// clang-format off
zend_module_entry module_entry = {
    STANDARD_MODULE_HEADER_EX,
    nullptr,
    kDependencies,
    "dralo",
    kFunctions,
    PHP_MINIT(dralo),
    PHP_MSHUTDOWN(dralo),
    PHP_RINIT(dralo),
    PHP_RSHUTDOWN(dralo),
    PHP_MINFO(dralo),
    kVersion,
    PHP_MODULE_GLOBALS(dralo),
    PHP_GINIT(dralo),
    PHP_GSHUTDOWN(dralo),
    AfterRequest,
    STANDARD_MODULE_PROPERTIES_EX,
};
// clang-format on

}  // namespace dralo::php

// NOLINTNEXTLINE(readability-identifier-naming): the name is the engine's.
extern "C" ZEND_DLEXPORT zend_module_entry* get_module() { return &dralo::php::module_entry; }
