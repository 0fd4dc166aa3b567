#include "answer.h"

#include "text.h"

namespace serve {

std::string Request::Header(const std::string& lower_name) const {
  const std::string* found = nullptr;
  for (const auto& [name, value] : headers) {
    if (Lower(name) != lower_name) continue;
    if (found != nullptr) return {};
    found = &value;
  }
  return found == nullptr ? std::string() : *found;
}

}  // namespace serve
