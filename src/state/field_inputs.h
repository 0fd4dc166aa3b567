#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "html/html_writer.h"
#include "state/request_keys.h"

namespace dralo::state {

/// The inputs of the edit form's fields, in the page and in the post. An input is named "Morvu", the view's
/// tag, "_Form_" and the field's name; one that carries a digest has "_Was_" in place of "_Form_".
class FieldInputs {
 public:
  /// `keys` must outlive the object.
  explicit FieldInputs(const RequestKeys& keys, std::string_view kind = key::kField);

  /// The name of a field's input. Valid as long as the object and `field`.
  html::Joined Name(std::string_view field) const { return {prefix_, field}; }

  /// What was posted for the field, unchanged; nothing when the posted form has no such input. The query
  /// string does not count, letter case does not matter. Valid as long as the request.
  std::optional<std::string_view> Posted(std::string_view field) const;

  /// The value of the input, read as the view's keys are: also from the query string, and without blanks
  /// around it; empty when it is missing. Valid as long as the request.
  std::string_view KeyValue(std::string_view field) const;

 private:
  const RequestKeys& keys_;
  std::string prefix_;
};

}  // namespace dralo::state
