#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dralo/request.h"
#include "text/list.h"

namespace dralo::tests {

/// The fields of a list such as "City:Bergen|Sort:"; none of an empty one.
inline std::vector<platform::RequestField> FieldsOf(std::string_view list) {
  std::vector<platform::RequestField> fields;
  if (list.empty()) return fields;
  for (const std::string& field : text::Split(list, "|")) {
    const std::size_t colon = field.find(':');
    fields.push_back({field.substr(0, colon), field.substr(colon + 1)});
  }
  return fields;
}

}  // namespace dralo::tests
