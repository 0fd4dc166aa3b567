#include "state/field_inputs.h"

#include "text/letter_case.h"

namespace dralo::state {

FieldInputs::FieldInputs(const RequestKeys& keys, std::string_view kind) : keys_(keys) {
  const html::Joined prefix = keys(kind);
  prefix_.append(prefix.first).append(prefix.second);
}

std::optional<std::string_view> FieldInputs::Posted(std::string_view field) const {
  for (const platform::RequestField& posted : keys_.GetRequest().Form()) {
    const std::string_view name = posted.name;
    if (name.size() >= prefix_.size() && text::EqualIgnoringCase(name.substr(0, prefix_.size()), prefix_) &&
        text::EqualIgnoringCase(name.substr(prefix_.size()), field)) {
      return posted.value;
    }
  }
  return std::nullopt;
}

std::string_view FieldInputs::KeyValue(std::string_view field) const {
  return keys_.Value(std::string(key::kField).append(field));
}

}  // namespace dralo::state
