#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "component/property.h"

namespace dralo::component {

/// Access to the property that was found under `name`; `property` is nullptr when there is none of that name.
/// Both throw std::invalid_argument, naming the property, when there is none, when its access does not allow
/// it, and when the value does not fit.
template <class Owner>
PropertyValue GetNamed(const Owner& owner, const Property<Owner>* property, std::string_view name) {
  if (property == nullptr) throw std::invalid_argument("There is no property " + std::string(name));
  if (property->get == nullptr) throw std::invalid_argument(std::string(property->name) + " cannot be read");
  return property->get(owner);
}

template <class Owner>
void SetNamed(Owner& owner, const Property<Owner>* property, std::string_view name,
              const PropertyValue& value) {
  if (property == nullptr) throw std::invalid_argument("There is no property " + std::string(name));
  if (property->set == nullptr) throw std::invalid_argument(std::string(property->name) + " cannot be set");
  try {
    property->set(owner, value);
  } catch (const std::invalid_argument& misfit) {
    throw std::invalid_argument(std::string(property->name) + " " + misfit.what());
  }
}

}  // namespace dralo::component
