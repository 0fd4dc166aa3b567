#pragma once

#include "hosts/php/engine.h"

namespace dralo::php {

/// A value of the script that C++ keeps alive. Let go of outside of all calls: an end of the script's objects
/// may run its code.
class KeptValue {
 public:
  explicit KeptValue(const zval* value);
  ~KeptValue();
  KeptValue(const KeptValue&) = delete;
  KeptValue& operator=(const KeptValue&) = delete;

  zval* Get() { return &value_; }

 private:
  zval value_;
};

}  // namespace dralo::php
