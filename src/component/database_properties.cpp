#include "component/database_properties.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>

#include "component/property_row.h"

namespace dralo::component {
namespace {

using platform::Command;
using platform::Connection;
using platform::Recordset;
using enum Access;
using enum PropertyType;

PropertyValue State(bool is_open) { return std::int64_t{is_open}; }

PropertyValue Text(std::string_view text) { return std::string(text); }

/// The number as a value of the enumeration, which must be one of `allowed`.
template <class Enum>
Enum OneOf(const PropertyValue& value, std::initializer_list<Enum> allowed) {
  const auto number = FromPropertyValue<std::int64_t>(value);
  std::string list;
  for (const Enum candidate : allowed) {
    if (static_cast<std::int64_t>(candidate) == number) return candidate;
    list += (list.empty() ? "" : ", ") + std::to_string(static_cast<int>(candidate));
  }
  throw std::invalid_argument("must be one of " + list);
}

void SetMaxRecords(Recordset& recordset, const PropertyValue& value) {
  const auto rows = FromPropertyValue<std::int64_t>(value);
  if (rows < 0) throw std::invalid_argument("must not be negative");
  recordset.SetMaxRecords(rows);
}

void SetCursorLocation(Recordset& recordset, const PropertyValue& value) {
  using platform::CursorLocation;
  recordset.SetCursorLocation(OneOf(value, {CursorLocation::kServer, CursorLocation::kClient}));
}

void SetCommandType(Command& command, const PropertyValue& value) {
  using enum platform::CommandType;
  command.command_type = OneOf(value, {kUnspecified, kText, kTable, kStoredProcedure, kUnknown});
}

// clang-format off
constexpr auto kConnection = std::to_array<Property<Connection>>({
  {"ConnectionString", kText, kReadOnly, "The list given to Open(), without a password; empty before.",
   [](const Connection& c) { return Text(c.ConnectionString()); }, nullptr},
  {"State", kLong, kReadOnly, "1 while the connection is open, else 0.",
   [](const Connection& c) { return State(c.IsOpen()); }, nullptr},
});

constexpr auto kRecordset = std::to_array<RecordsetProperty>({
  {"EOF", kBoolean, kReadOnly, "Whether there is no current row because the last one was passed.",
   [](Recordset& r) -> PropertyValue { return r.Eof(); }, nullptr},
  {"MaxRecords", kLong, kReadWrite, "The highest number of rows the recordset yields; 0 means all. Set it before Open().",
   [](Recordset& r) -> PropertyValue { return r.MaxRecords(); }, SetMaxRecords},
  {"CursorLocation", kLong, kReadWrite, "2 on the server, 3 on the client, which updates need. Set it before Open().",
   [](Recordset& r) -> PropertyValue { return static_cast<std::int64_t>(r.Location()); }, SetCursorLocation},
  {"State", kLong, kReadOnly, "1 while the recordset is open, else 0.",
   [](Recordset& r) { return State(r.IsOpen()); }, nullptr},
});

constexpr auto kCommand = std::to_array<Property<Command>>({
  {"ActiveConnection", kObject, kReadWrite, "The connection that the statement runs on.",
   [](const Command& c) { return ToPropertyValue(c.active_connection); },
   [](Command& c, const PropertyValue& value) { c.active_connection = FromPropertyValue<std::shared_ptr<Connection>>(value); }, "ADODB.Connection"},
  {"CommandText", kText, kReadWrite, "The statement; each \"?\" stands for one of the parameters.",
   [](const Command& c) -> PropertyValue { return c.command_text; },
   [](Command& c, const PropertyValue& value) { c.command_text = FromPropertyValue<std::string>(value); }},
  {"CommandType", kLong, kReadWrite, "1 a statement, 2 a table name, 4 a stored procedure, 8 unknown; -1 unspecified.",
   [](const Command& c) -> PropertyValue { return static_cast<std::int64_t>(c.command_type); }, SetCommandType},
});

constexpr auto kField = std::to_array<FieldProperty>({
  {"Name", kText, kReadOnly, "The name of the column.",
   [](FieldReference& f) { return Text(f.Get().Name()); }, nullptr},
  {"Type", kLong, kReadOnly, "The numeric data type, such as 3 for integers and 202 for text.",
   [](FieldReference& f) -> PropertyValue { return static_cast<std::int64_t>(f.Get().Type()); }, nullptr},
  {"Attributes", kLong, kReadOnly, "A sum of bits; 32 means that the column may be null.",
   [](FieldReference& f) -> PropertyValue { return std::int64_t{f.Get().Attributes()}; }, nullptr},
  {"DefinedSize", kLong, kReadOnly, "Characters of a text column, bytes of others; 0 when the column declares none.",
   [](FieldReference& f) -> PropertyValue { return f.Get().DefinedSize(); }, nullptr},
  {"ActualSize", kLong, kReadOnly, "Bytes of the current value; 0 for null.",
   [](FieldReference& f) -> PropertyValue { return f.Get().ActualSize(); }, nullptr},
});
// clang-format on

}  // namespace

std::span<const Property<Connection>> ConnectionProperties() { return kConnection; }
std::span<const RecordsetProperty> RecordsetProperties() { return kRecordset; }
std::span<const Property<Command>> CommandProperties() { return kCommand; }
std::span<const FieldProperty> FieldProperties() { return kField; }

}  // namespace dralo::component
