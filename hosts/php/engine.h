#pragma once

// The scripting engine's headers, in the order they need. Their macros reach far: include this header last.

#include <php.h>
//
#include <SAPI.h>
#include <php_ini.h>
#include <rfc1867.h>
#include <zend_attributes.h>
#include <zend_exceptions.h>
#include <zend_fibers.h>
#include <zend_interfaces.h>
#include <ext/spl/spl_exceptions.h>
#include <ext/standard/info.h>

#ifdef ZTS
ZEND_TSRMLS_CACHE_EXTERN()
#endif

// Declares C functions without saying so.
extern "C" {
#include <ext/date/php_date.h>
}

#include "hosts/php/engine_differences.h"
