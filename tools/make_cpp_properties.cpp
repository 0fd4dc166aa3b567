// Prints the typed setters and getters of C++ programs from the property tables.
//
//   make_cpp_properties DbView         include/dralo/db_view_properties.h
//   make_cpp_properties DBConnection   include/dralo/db_connection_properties.h

#include <initializer_list>
#include <iostream>
#include <span>
#include <string>
#include <string_view>

#include "component/property.h"

namespace {

using dralo::component::PropertyType;

constexpr std::string_view kViewHead = R"(#pragma once

// Printed by make_cpp_properties from the property tables: do not edit.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/change.h"
#include "dralo/command.h"
#include "dralo/db_connection.h"
#include "dralo/property_owner.h"
#include "dralo/recordset.h"
#include "dralo/token_callback.h"
#include "dralo/variant.h"

namespace dralo {

/// The properties of a view, each with a function that reads it and one that sets it. Those that read return
/// copies. Those that set throw std::invalid_argument, naming the property, when the value does not fit, and
/// Error when setting reaches a database that fails. Threads and lifetime are those of the view.
// clang-format off
class DbViewProperties : public IndexedPropertyOwner {
 public:
)";

constexpr std::string_view kConnectionHead = R"(#pragma once

// Printed by make_cpp_properties from the property tables: do not edit.

#include <memory>
#include <string>
#include <string_view>

#include "dralo/connection.h"
#include "dralo/property_owner.h"

namespace dralo {

/// The properties of a connection that views share, in the manner of DbViewProperties.
// clang-format off
class DBConnectionProperties : public PropertyOwner {
 public:
)";

constexpr std::string_view kEnd = R"(};
// clang-format on

}  // namespace dralo
)";

/// How a type is spelled where a property is read and where it is set.
struct Spelling {
  std::string read;
  std::string set;
};

/// The class of C++ programs that has this programmatic identifier.
std::string_view ClassOf(std::string_view identifier) { return identifier.substr(identifier.find('.') + 1); }

Spelling SpellingOf(PropertyType type, std::string_view object_class) {
  switch (type) {
    case PropertyType::kText:
      return {"std::string", "std::string_view"};
    case PropertyType::kBoolean:
      return {"bool", "bool"};
    case PropertyType::kInteger:
      return {"std::int16_t", "std::int16_t"};
    case PropertyType::kLong:
      return {"std::int32_t", "std::int32_t"};
    case PropertyType::kList:
      return {"std::vector<Variant>", "std::vector<Variant>"};
    case PropertyType::kHandler:
      return {"", "std::function<void(Change&)>"};
    case PropertyType::kTokenCallback:
      return {"", "std::function<Variant(const Variant&)>"};
    case PropertyType::kObject:
      break;
  }
  const std::string pointer = std::string("std::shared_ptr<dralo::").append(ClassOf(object_class)) + ">";
  return {pointer, "const " + pointer + "&"};
}

/// Functions begin with a capital.
std::string FunctionName(std::string_view property) {
  std::string name(property);
  if (name.front() >= 'a' && name.front() <= 'z') name.front() = static_cast<char>(name.front() - 'a' + 'A');
  return name;
}

/// The property's own sentence stands above the first of its functions.
void PrintFunctions(std::string_view doc, std::string_view name, std::string_view getter,
                    std::string_view setter) {
  std::cout << "  /// " << doc << '\n' << getter << setter;
  if (!getter.empty() && !setter.empty()) std::cout << "  ///< Sets " << name << "().";
  if (!setter.empty()) std::cout << '\n';
}

std::string Joined(std::initializer_list<std::string_view> parts) {
  std::string joined;
  for (const std::string_view part : parts) joined += part;
  return joined;
}

/// What a setter passes on of its parameter.
std::string_view ValueToSet(PropertyType type) {
  if (type == PropertyType::kHandler) return "MakeHandler(std::move(value))";
  if (type == PropertyType::kTokenCallback) return "MakeTokenCallback(std::move(value))";
  return type == PropertyType::kList ? "std::move(value)" : "value";
}

template <class Owner>
void PrintProperties(std::span<const dralo::component::Property<Owner>> rows) {
  for (const auto& row : rows) {
    const auto [read, set] = SpellingOf(row.type, row.object_class);
    const std::string name = FunctionName(row.name);
    const std::string getter =
        Joined({"  ", read, " ", name, "() const { return Typed<", read, ">(\"", row.name, "\"); }\n"});
    const std::string_view value = ValueToSet(row.type);
    const std::string setter =
        Joined({"  void Set", name, "(", set, " value) { SetTyped(\"", row.name, "\", ", value, "); }"});
    PrintFunctions(row.doc, name, row.get == nullptr || read.empty() ? "" : getter,
                   row.set == nullptr ? "" : setter);
  }
}

/// Properties that can be set hold texts.
void PrintIndexedProperties() {
  for (const auto& row : dralo::component::DbViewIndexedProperties()) {
    const bool is_text = row.set != nullptr;
    const std::string getter =
        Joined({is_text ? "  std::string " : "  Variant ", row.name, "(std::int16_t number) { return ",
                is_text ? "TextAt" : "GetAt", "(\"", row.name, "\", number); }\n"});
    const std::string setter =
        Joined({"  void Set", row.name, "(std::int16_t number, std::string_view text) { SetAt(\"", row.name,
                "\", number, text); }"});
    PrintFunctions(row.doc, row.name, getter, is_text ? setter : "");
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view owner = argc == 2 ? argv[1] : "";
  if (owner == "DbView") {
    std::cout << kViewHead;
    PrintProperties(dralo::component::DbViewProperties());
    PrintIndexedProperties();
  } else if (owner == "DBConnection") {
    std::cout << kConnectionHead;
    PrintProperties(dralo::component::DBConnectionProperties());
  } else {
    std::cerr << "usage: make_cpp_properties DbView|DBConnection\n";
    return 2;
  }
  std::cout << kEnd;
  return std::cout.flush() ? 0 : 1;
}
