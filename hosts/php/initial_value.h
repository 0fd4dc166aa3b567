#pragma once

#include <optional>

#include "component/property.h"
#include "dralo/error.h"
#include "hosts/php/engine.h"
#include "platform/environment.h"

namespace dralo::php {

/// Lets an object be made before there is a page or a setting, to ask it for the values that it begins with.
class NoServices final : public platform::Environment {
 public:
  platform::ObjectPtr CreateObject(std::string_view) override { Refuse(); }
  const platform::ValueFormatting& Regional() const override { Refuse(); }
  std::unique_ptr<platform::RegExp> CreateRegExp() override { Refuse(); }

 private:
  [[noreturn]] static void Refuse() { throw platform::Error("The module is only starting"); }
};

/// What the property of a new object holds, for reflection; nullopt when that takes more than the object.
template <class Row, class Owner>
std::optional<component::PropertyValue> InitialValue(const Row& row, const Owner& fresh) {
  if (row.get == nullptr) return std::nullopt;
  try {
    return row.get(fresh);
  } catch (const platform::Error&) {
    return std::nullopt;
  }
}

/// Puts the value into `result`, so that it lasts as long as the process; objects are none.
void PutInitialValue(const std::optional<component::PropertyValue>& value, zval* result);

}  // namespace dralo::php
