#include "cells/named_field.h"

#include <string>

#include "util/letter_case.h"

namespace dralo::cells {

platform::Field* FindField(platform::Recordset& recordset, std::string_view name) {
  for (platform::Field* field : recordset.Fields()) {
    if (util::EqualIgnoringCase(field->Name(), name)) return field;
  }
  return nullptr;
}

platform::Error UnknownField(std::string_view name) {
  return platform::Error(std::string("The record has no field named \"").append(name).append("\""));
}

}  // namespace dralo::cells
