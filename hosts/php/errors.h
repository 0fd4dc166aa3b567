#pragma once

#include <string>

#include "hosts/php/engine.h"

namespace dralo::php {

/// A mistake of the script, thrown in C++ and raised in the script as one of the engine's own errors.
struct ScriptError {
  zend_class_entry* raised_class;  ///< Error or a class derived from it.
  std::string message;
};

/// Dralo\Exception: failures of databases and of object creation.
extern zend_class_entry* exception_class;
void RegisterException();

/// Keeps the C++ exception that is being handled. The two steps are apart because raising an exception may
/// jump out, which must not happen inside a C++ handler.
void RememberFailure() noexcept;

/// Raises the failure kept: platform::Error as Dralo\Exception, ScriptError as the error it names, anything
/// else as Error.
void ThrowRememberedFailure();

}  // namespace dralo::php
