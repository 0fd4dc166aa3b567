#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "data/show.h"
#include "database/objects.h"
#include "dralo/error.h"
#include "hosts/cpp/providers.h"
#include "text/ascii.h"

namespace dralo::tests {

using ConnectionPtr = std::shared_ptr<platform::Connection>;
using RecordsetPtr = std::shared_ptr<platform::Recordset>;
using Lines = std::vector<std::string>;

inline ConnectionPtr Connect(std::string_view connection_string) {
  auto connection = database::MakeConnection(host::AllProviders());
  connection->Open(connection_string);
  return connection;
}

inline RecordsetPtr Read(const ConnectionPtr& connection, std::string_view sql,
                         std::int64_t max_records = 0) {
  auto recordset = database::MakeRecordset();
  recordset->SetMaxRecords(max_records);
  recordset->Open(sql, connection);
  return recordset;
}

/// Opened so that its records can be changed.
inline RecordsetPtr Edit(const ConnectionPtr& connection, std::string_view sql,
                         const platform::Formatting* formatting = nullptr) {
  auto recordset = database::MakeRecordset(formatting);
  recordset->SetCursorLocation(platform::CursorLocation::kClient);
  recordset->Open(sql, connection, platform::CursorType::kKeyset, platform::LockType::kOptimistic);
  return recordset;
}

/// The field of that name in any letter case.
inline platform::Field& FieldOf(platform::Recordset& recordset, std::string_view name) {
  for (platform::Field* field : recordset.Fields()) {
    if (text::EqualAscii(field->Name(), name)) return *field;
  }
  throw std::invalid_argument("no field " + std::string(name));
}

inline std::string ValueOf(platform::Recordset& recordset, std::string_view name) {
  return Shown(FieldOf(recordset, name).Value());
}

/// The values of the current record with blanks between.
inline std::string Line(platform::Recordset& recordset) {
  std::string line;
  for (platform::Field* field : recordset.Fields()) line += (line.empty() ? "" : " ") + Shown(field->Value());
  return line;
}

/// One line per record from the current one to the end.
inline Lines Rest(platform::Recordset& recordset) {
  Lines lines;
  for (; !recordset.Eof(); recordset.MoveNext()) lines.push_back(Line(recordset));
  return lines;
}

inline Lines Rows(const ConnectionPtr& connection, std::string_view sql) {
  return Rest(*Read(connection, sql));
}

/// The records behind the first `passed` ones, of at most `max_records` in all.
inline Lines Page(const ConnectionPtr& connection, std::string_view sql, std::int64_t max_records,
                  std::int64_t passed) {
  auto recordset = Read(connection, sql, max_records);
  recordset->Move(passed);
  return Rest(*recordset);
}

/// The error that `action` ends with. Throws std::logic_error when it ends without one.
template <class Action>
platform::Error ErrorOf(Action&& action) {
  try {
    action();
  } catch (const platform::Error& error) {
    return error;
  }
  throw std::logic_error("expected an error");
}

template <class Action>
std::string MessageOf(Action&& action) {
  return ErrorOf(std::forward<Action>(action)).what();
}

}  // namespace dralo::tests
