#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dralo/page_context.h"
#include "dralo/request.h"
#include "hosts/cpp/environment.h"
#include "hosts/php/engine.h"

namespace dralo::php {

struct NativeObject;

/// A failure on its way from C++ to the script.
struct Failure {
  zend_class_entry* raised_class = nullptr;
  std::string message = {};
  int number = 0;
  std::string sqlstate = {};
  std::string source = {};
};

/// The settings of the site as they are written. Some servers change them from page to page.
struct WrittenSite {
  std::string hardened;
  std::string trusted_origins;
  std::string hosts;

  bool operator==(const WrittenSite&) const = default;
};

/// Everything of this extension that changes while scripts run. A thread of the server runs one script at a
/// time and has one of these, from before its first request until it ends; without thread safety the process
/// has one.
struct ThreadState {
  /// Calls into C++ that change something and have not returned.
  int changes_in_progress = 0;

  /// Kept here, so that a jump out of raising it leaks nothing.
  Failure failure = {};

  /// The list of all objects of the request.
  NativeObject* newest = nullptr;

  std::unique_ptr<platform::PageContext> page = nullptr;
  std::vector<platform::RequestField> multipart_fields = {};

  std::unique_ptr<host::Environment> environment = nullptr;
  WrittenSite site_in_use = {};
};

}  // namespace dralo::php

// clang-format off
// NOLINTBEGIN(readability-identifier-naming): the names are the engine's.
ZEND_BEGIN_MODULE_GLOBALS(dralo)
  dralo::php::ThreadState* state;
ZEND_END_MODULE_GLOBALS(dralo)
ZEND_EXTERN_MODULE_GLOBALS(dralo)
// NOLINTEND(readability-identifier-naming)
// clang-format on

namespace dralo::php {

inline ThreadState& ThisThread() { return *ZEND_MODULE_GLOBALS_ACCESSOR(dralo, state); }

}  // namespace dralo::php
