#include "state/request_keys.h"

#include "text/blanks.h"
#include "text/letter_case.h"

namespace dralo::state {

RequestKeys::RequestKeys(const platform::Request& request, std::string_view tag)
    : request_(request), prefix_(key::kPrefix) {
  prefix_ += tag;
}

std::string_view RequestKeys::Value(std::string_view name) const { return Find(name, {}); }

bool RequestKeys::WasPressed(std::string_view button) const { return !Find(button, key::kPressed).empty(); }

std::string_view RequestKeys::Find(std::string_view name, std::string_view suffix) const {
  const auto is_wanted = [&](std::string_view candidate) {
    return candidate.size() == prefix_.size() + name.size() + suffix.size() &&
           text::EqualIgnoringCase(candidate.substr(0, prefix_.size()), prefix_) &&
           text::EqualIgnoringCase(candidate.substr(prefix_.size(), name.size()), name) &&
           text::EqualIgnoringCase(candidate.substr(prefix_.size() + name.size()), suffix);
  };
  for (const auto fields : {request_.Form(), request_.QueryString()}) {
    for (const platform::RequestField& field : fields) {
      if (is_wanted(field.name)) return text::TrimBlanks(field.value);
    }
  }
  return {};
}

}  // namespace dralo::state
