#pragma once

#include "hosts/php/guard.h"
#include "hosts/php/native_object.h"

namespace dralo::php {

/// A method without arguments and result, which may change the object.
template <class Native, void (Native::*Operation)()>
void PlainMethod(INTERNAL_FUNCTION_PARAMETERS) {
  ZEND_PARSE_PARAMETERS_NONE();
  EnterCpp(Entry::kChanges, [&] { (NativeAs<Native>(Z_OBJ_P(ZEND_THIS)).*Operation)(); });
}

ZEND_BEGIN_ARG_WITH_RETURN_TYPE_INFO_EX(plain_method_arginfo, 0, 0, IS_VOID, 0)
ZEND_END_ARG_INFO()

}  // namespace dralo::php

/// Its row in a table of methods: the operation of the C++ class has the name of the script's method.
#define PLAIN_METHOD(Native, Operation)                                                                      \
  SCRIPT_FUNCTION(#Operation, (::dralo::php::PlainMethod<Native, &Native::Operation>), plain_method_arginfo, \
                  ZEND_ACC_PUBLIC)
