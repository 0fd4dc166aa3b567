#pragma once

#include "hosts/php/engine.h"

namespace dralo::php {

/// A value of the script that C++ keeps alive. Must be destroyed where script code may run: the value may be
/// the last reference to an object with a destructor.
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
