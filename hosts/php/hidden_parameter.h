#pragma once

#include <cstdint>
#include <string_view>

#include "hosts/php/engine.h"
#include "hosts/php/script_class.h"

namespace dralo::php {

/// Keeps the value of a method's parameter, counted from 0, out of the traces of exceptions. `method` is in
/// lower case. For classes that are being declared.
inline void HideInTraces(const ScriptClass& registered, std::string_view method, std::uint32_t parameter) {
  void* function = zend_hash_str_find_ptr(&registered.entry->function_table, method.data(), method.size());
  zend_add_parameter_attribute(static_cast<zend_function*>(function), parameter,
                               ZSTR_KNOWN(ZEND_STR_SENSITIVEPARAMETER), 0);
}

}  // namespace dralo::php
