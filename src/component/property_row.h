#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

#include "component/property.h"
#include "dralo/change.h"
#include "dralo/token_callback.h"

/// Makes a row of the property table from the member that keeps the property: the member's type is the
/// property's type.
namespace dralo::component {

template <class Member>
struct MemberTraits;

template <>
struct MemberTraits<bool> {
  static constexpr PropertyType kType = PropertyType::kBoolean;
};
template <>
struct MemberTraits<std::int16_t> {
  static constexpr PropertyType kType = PropertyType::kInteger;
};
template <>
struct MemberTraits<std::int32_t> {
  static constexpr PropertyType kType = PropertyType::kLong;
};
template <>
struct MemberTraits<std::string> {
  static constexpr PropertyType kType = PropertyType::kText;
};
template <>
struct MemberTraits<std::vector<platform::Variant>> {
  static constexpr PropertyType kType = PropertyType::kList;
};

template <>
struct MemberTraits<std::shared_ptr<platform::ChangeHandler>> {
  static constexpr PropertyType kType = PropertyType::kHandler;
};
template <>
struct MemberTraits<std::shared_ptr<platform::TokenCallback>> {
  static constexpr PropertyType kType = PropertyType::kTokenCallback;
};
template <class Class>
struct MemberTraits<std::shared_ptr<Class>> {
  static constexpr PropertyType kType = PropertyType::kObject;
};

template <class Member>
PropertyValue ToPropertyValue(const Member& member) {
  if constexpr (std::is_same_v<Member, std::int16_t> || std::is_same_v<Member, std::int32_t>) {
    return std::int64_t{member};
  } else if constexpr (std::is_convertible_v<Member, platform::ObjectPtr>) {
    return platform::ObjectPtr(member);
  } else {
    return member;
  }
}

/// The value as the type of a member. Throws std::invalid_argument when it is of another type or does not
/// fit.
template <class Member>
Member FromPropertyValue(const PropertyValue& value) {
  if constexpr (std::is_same_v<Member, bool>) {
    if (const auto* flag = std::get_if<bool>(&value)) return *flag;
    throw std::invalid_argument("must be true or false");
  } else if constexpr (std::is_same_v<Member, std::string>) {
    if (const auto* text = std::get_if<std::string>(&value)) return *text;
    throw std::invalid_argument("must be a text");
  } else if constexpr (std::is_same_v<Member, std::vector<platform::Variant>>) {
    if (const auto* list = std::get_if<Member>(&value)) return *list;
    throw std::invalid_argument("must be a list of values");
  } else if constexpr (std::is_integral_v<Member>) {
    using Limits = std::numeric_limits<Member>;
    const auto* number = std::get_if<std::int64_t>(&value);
    if (number != nullptr && *number >= Limits::min() && *number <= Limits::max()) {
      return static_cast<Member>(*number);
    }
    throw std::invalid_argument("must be a whole number from " + std::to_string(Limits::min()) + " to " +
                                std::to_string(Limits::max()));
  } else {
    const auto* object = std::get_if<platform::ObjectPtr>(&value);
    if (object != nullptr && *object == nullptr) return nullptr;
    auto member =
        object == nullptr ? nullptr : std::dynamic_pointer_cast<typename Member::element_type>(*object);
    if (member == nullptr) throw std::invalid_argument("must be an object of the right class, or none");
    return member;
  }
}

}  // namespace dralo::component
