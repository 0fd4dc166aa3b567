#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "dralo/property_owner.h"
#include "dralo/variant.h"

namespace dralo::component {

class DBConnection;
class DbView;

enum class PropertyType {
  kText,
  kBoolean,
  kInteger,  ///< 16 bits, signed
  kLong,     ///< 32 bits, signed
  kObject,   ///< an object, or none
  kList,     ///< database values
  kHandler,  ///< a handler of changes, or none
  kTokenCallback,
};

enum class Access { kReadWrite, kReadOnly, kWriteOnly };

using dralo::PropertyValue;

/// One property of a public class. The tables of these are the only place that knows a property: the script
/// binding, the reference page, the editor stub and the round-trip test are made from them. `Reader` is not
/// const where reading may change the owner, such as a recordset, which runs its statement when it is asked.
template <class Owner, class Reader = const Owner>
struct Property {
  std::string_view name;  ///< As scripts spell it; looked up without regard to letter case.
  PropertyType type;
  Access access;
  std::string_view doc;  ///< One sentence for the reference page; names the unit and special values.

  /// nullptr when the property is write-only.
  PropertyValue (*get)(Reader& owner);

  /// Stores the value and runs the property's effects, at every assignment. nullptr when the property is
  /// read-only. Throws std::invalid_argument, and changes nothing, when the value is of another type or does
  /// not fit: what() says what the value must be, without the property's name. Effects may throw
  /// platform::Error of the database.
  void (*set)(Owner& owner, const PropertyValue& value);

  /// For object properties the programmatic identifier of the class they hold; else empty.
  std::string_view object_class = {};

  /// Whether it shows a password or leads to one; dumps of a hardened view leave it out.
  bool is_secret = false;
};

/// A property that takes a column or field number: read as owner.Name(index), set as owner.Name(index) =
/// text.
struct IndexedProperty {
  std::string_view name;
  Access access;
  std::string_view doc;
  platform::Variant (*get)(DbView& view, std::int16_t index);
  void (*set)(DbView& view, std::int16_t index, std::string_view text);  ///< nullptr when read-only
};

/// The properties of a view and of a connection, in the order in which their defaults are set.
std::span<const Property<DbView>> DbViewProperties();
std::span<const Property<DBConnection>> DBConnectionProperties();
std::span<const IndexedProperty> DbViewIndexedProperties();

/// The property called `name` in any letter case, or nullptr.
const Property<DbView>* FindDbViewProperty(std::string_view name);

}  // namespace dralo::component
