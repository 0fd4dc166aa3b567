#include "state/named_field.h"

#include <string>

#include "text/letter_case.h"

namespace dralo::state {

platform::Field* FindField(platform::Recordset& recordset, std::string_view name) {
  for (platform::Field* field : recordset.Fields()) {
    if (text::EqualIgnoringCase(field->Name(), name)) return field;
  }
  return nullptr;
}

platform::Error UnknownField(std::string_view name) {
  return platform::Error(std::string("The record has no field named \"").append(name).append("\""));
}

platform::Field& KeyField(platform::Recordset& recordset, std::string_view name) {
  if (name.empty()) throw platform::Error("EditPrimaryKeys must name the fields that identify a record");
  platform::Field* field = FindField(recordset, name);
  if (field == nullptr) throw UnknownField(name);
  return *field;
}

}  // namespace dralo::state
