#pragma once

// Where the engines of PHP 8.2 to 8.4 differ. Included by engine.h.

/// A row of a table of functions or methods.
#if PHP_VERSION_ID < 80400
#define SCRIPT_FUNCTION(name, function, arguments, flags) ZEND_RAW_FENTRY(name, function, arguments, flags)
#else
#define SCRIPT_FUNCTION(name, function, arguments, flags) \
  ZEND_RAW_FENTRY(name, function, arguments, flags, nullptr, nullptr)
#endif

namespace dralo::php {

/// int in some engines, zend_result in others.
using MultipartAnswer = decltype(php_rfc1867_callback(0U, nullptr, nullptr));
using IteratorAnswer = decltype(zend_object_iterator_funcs().valid(nullptr));

/// The same as SCRIPT_FUNCTION for what is known at run time only. Newer engines have more fields.
inline zend_function_entry FunctionEntry(const char* name, zif_handler function,
                                         const zend_internal_arg_info* arguments, uint32_t count,
                                         uint32_t flags) {
  zend_function_entry entry = {};
  entry.fname = name;
  entry.handler = function;
  entry.arg_info = arguments;
  entry.num_args = count;
  entry.flags = flags;
  return entry;
}

}  // namespace dralo::php

// Not in every patch release: an extension that needed it would not load in the others.
extern "C" [[gnu::weak]] void* ZEND_FASTCALL _femalloc(size_t size ZEND_FILE_LINE_DC ZEND_FILE_LINE_ORIG_DC);
