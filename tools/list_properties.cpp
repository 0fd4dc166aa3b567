// Prints docs/properties.md, the reference of all properties, from the property tables.

#include <iostream>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "component/db_connection.h"
#include "component/db_view.h"
#include "component/property.h"
#include "hosts/cpp/environment.h"

namespace {

using dralo::component::Access;
using dralo::component::PropertyType;

constexpr std::string_view kHead = R"(# Properties

<!-- Printed by list_properties from the property tables: do not edit. -->

Names are found in any letter case. "integer" has 16 bits, "long" has 32; both are `int` in PHP. A "list" is an
`array` of database values: null, bool, int, float, string or DateTimeInterface; its keys do not count.
Properties of columns count every field of the query from 1, hidden ones too.

## Dralo\DbView

In the order in which the defaults are set.

)";

constexpr std::string_view kColumns =
    "| Property | Type | Access | Default | Meaning |\n|---|---|---|---|---|\n";

constexpr std::string_view kIndexedHead = R"(
### Properties with a number

`$view->Name[3]` reads and `$view->Name[3] = 'text'` sets; `$view->Name(3)` and `$view->Name(3, 'text')` do the same.

| Property | Access | Meaning |
|---|---|---|
)";

constexpr std::string_view kConnectionHead = R"(
## Dralo\DBConnection

)";

std::string_view TypeName(PropertyType type) {
  switch (type) {
    case PropertyType::kText:
      return "text";
    case PropertyType::kBoolean:
      return "boolean";
    case PropertyType::kInteger:
      return "integer";
    case PropertyType::kLong:
      return "long";
    case PropertyType::kList:
      return "list";
    case PropertyType::kHandler:
    case PropertyType::kTokenCallback:
      return "function";
    case PropertyType::kObject:
      break;
  }
  return "object";
}

std::string_view AccessName(Access access) {
  switch (access) {
    case Access::kReadWrite:
      return "read, write";
    case Access::kReadOnly:
      return "read";
    case Access::kWriteOnly:
      break;
  }
  return "write";
}

std::string Code(std::string_view text) { return std::string("`").append(text).append("`"); }

struct DefaultText {
  std::string operator()(bool flag) const { return Code(flag ? "true" : "false"); }
  std::string operator()(std::int64_t number) const { return Code(std::to_string(number)); }
  std::string operator()(const std::string& text) const { return text.empty() ? "empty" : Code(text); }
  std::string operator()(const dralo::platform::ObjectPtr& object) const {
    return object == nullptr ? "none" : "one of its own";
  }
  std::string operator()(const std::vector<dralo::platform::Variant>& list) const {
    return list.empty() ? "empty" : std::to_string(list.size()) + " values";
  }
};

template <class Owner>
void PrintRows(std::span<const dralo::component::Property<Owner>> rows, const Owner& untouched) {
  for (const auto& row : rows) {
    const std::string type =
        row.object_class.empty() ? std::string(TypeName(row.type)) : Code(row.object_class);
    // The value of a read-only property before a page is no default.
    const bool has_default = row.access == Access::kReadWrite;
    const std::string value = has_default ? std::visit(DefaultText(), row.get(untouched)) : "";
    std::cout << "| " << Code(row.name) << " | " << type << " | " << AccessName(row.access) << " | " << value
              << " | " << row.doc << " |\n";
  }
}

void PrintIndexedRows() {
  for (const auto& row : dralo::component::DbViewIndexedProperties()) {
    std::cout << "| " << Code(row.name) << " | " << AccessName(row.access) << " | " << row.doc << " |\n";
  }
}

}  // namespace

int main() {
  dralo::host::Environment environment("en-US");
  std::cout << kHead << kColumns;
  PrintRows(dralo::component::DbViewProperties(), dralo::component::DbView(environment));
  std::cout << kIndexedHead;
  PrintIndexedRows();
  std::cout << kConnectionHead << kColumns;
  PrintRows(dralo::component::DBConnectionProperties(), dralo::component::DBConnection(environment));
  return std::cout.flush() ? 0 : 1;
}
