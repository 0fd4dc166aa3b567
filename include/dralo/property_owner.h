#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "dralo/object.h"
#include "dralo/variant.h"

namespace dralo {

/// A property's value of any type. Numbers of both widths are 64-bit here; a null pointer is "no object".
using PropertyValue = std::variant<bool, std::int64_t, std::string, ObjectPtr, std::vector<Variant>>;

/// An object whose properties are found by name, in any letter case. Belongs to one thread at a time.
class PropertyOwner {
 public:
  virtual ~PropertyOwner() = default;

  /// @{
  /// Both throw std::invalid_argument naming the property when there is none of that name, when its access
  /// does not allow it, and when the value does not fit. What setting does besides may throw Error of the
  /// database.
  virtual PropertyValue Get(std::string_view name) const = 0;
  virtual void Set(std::string_view name, const PropertyValue& value) = 0;
  /// @}

 protected:
  /// For callers that know the property's type.
  template <class Type>
  Type Typed(std::string_view name) const {
    const PropertyValue value = Get(name);
    if constexpr (std::is_same_v<Type, bool> || std::is_same_v<Type, std::string> ||
                  std::is_same_v<Type, std::vector<Variant>>) {
      return std::get<Type>(value);
    } else if constexpr (std::is_integral_v<Type>) {
      return static_cast<Type>(std::get<std::int64_t>(value));
    } else {
      return std::dynamic_pointer_cast<typename Type::element_type>(std::get<ObjectPtr>(value));
    }
  }

  /// @{
  /// Sets a property whose type the caller knows; for the functions with the properties' names.
  void SetTyped(std::string_view name, bool flag) { Set(name, flag); }
  void SetTyped(std::string_view name, std::int16_t number) { Set(name, std::int64_t{number}); }
  void SetTyped(std::string_view name, std::int32_t number) { Set(name, std::int64_t{number}); }
  void SetTyped(std::string_view name, std::string_view text) { Set(name, std::string(text)); }
  void SetTyped(std::string_view name, const ObjectPtr& object) { Set(name, object); }
  void SetTyped(std::string_view name, std::vector<Variant> list) { Set(name, std::move(list)); }
  /// @}
};

/// One that also has properties with a number, such as the number of a column.
class IndexedPropertyOwner : public PropertyOwner {
 public:
  /// @{
  /// Both throw std::invalid_argument as Get() and Set() do. Reading may report a missing text in
  /// ErrorMessage, so it is no constant function.
  virtual Variant GetAt(std::string_view name, std::int16_t number) = 0;
  virtual void SetAt(std::string_view name, std::int16_t number, std::string_view text) = 0;
  /// @}

 protected:
  /// For callers that know that the property holds texts.
  std::string TextAt(std::string_view name, std::int16_t number) {
    return std::get<std::string>(GetAt(name, number));
  }
};

}  // namespace dralo
