#include "hosts/php/kept_value.h"

#include "hosts/php/guard.h"

namespace dralo::php {

KeptValue::KeptValue(const zval* value) { ZVAL_COPY(&value_, value); }

KeptValue::~KeptValue() {
  try {
    CallPhp([this] { zval_ptr_dtor(&value_); });
  } catch (const HostAbort&) {
    // A pending exception or abort stays pending: the engine sees it later.
  }
}

}  // namespace dralo::php
