#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace dralo::tests {

/// The inputs of a page's edit form that carry digests, names with their values, as a browser posts them.
inline std::vector<std::pair<std::string, std::string>> DigestsIn(std::string_view page) {
  constexpr std::string_view kName = "name=\"Morvu1_Was_";
  constexpr std::string_view kValue = "\" value=\"";
  std::vector<std::pair<std::string, std::string>> digests;
  for (std::size_t at = page.find(kName); at != page.npos; at = page.find(kName, at + 1)) {
    const std::size_t name = at + std::string_view("name=\"").size();
    const std::size_t name_end = page.find('"', name);
    const std::size_t value = name_end + kValue.size();
    if (page.substr(name_end, kValue.size()) != kValue) continue;
    digests.emplace_back(page.substr(name, name_end - name),
                         page.substr(value, page.find('"', value) - value));
  }
  return digests;
}

}  // namespace dralo::tests
