#include "regional/replacement.h"

#include <algorithm>

#include "regional/digits.h"
#include "text/ascii.h"

namespace dralo::regional {
namespace {

/// The number of the group that `reference`, the text after a "$", names, and how many digits it takes: two
/// if there is such a group, else one. No digits when it names no group.
struct GroupReference {
  std::size_t group = 0;
  std::size_t digits = 0;
};

GroupReference ReadReference(std::string_view reference, std::size_t groups) {
  std::size_t number = 0;
  GroupReference found;
  for (std::size_t i = 0; i < std::min<std::size_t>(2, reference.size()) && text::IsDigit(reference[i]);
       ++i) {
    number = number * 10 + static_cast<std::size_t>(reference[i] - '0');
    if (number >= 1 && number < groups) found = {number, i + 1};
  }
  return found;
}

void AppendGroup(std::string_view text, std::size_t start, std::size_t end, std::string& result) {
  if (start <= end && end <= text.size()) result += text.substr(start, end - start);
}

}  // namespace

void AppendReplacement(std::string_view replacement, std::string_view text,
                       std::span<const std::size_t> groups, std::string& result) {
  while (true) {
    const std::size_t dollar = replacement.find('$');
    result += replacement.substr(0, dollar);
    if (dollar == replacement.npos) return;
    replacement.remove_prefix(dollar + 1);

    if (replacement.starts_with('$')) {
      result += '$';
      replacement.remove_prefix(1);
    } else if (replacement.starts_with('&')) {
      AppendGroup(text, groups[0], groups[1], result);
      replacement.remove_prefix(1);
    } else if (const GroupReference reference = ReadReference(replacement, groups.size() / 2);
               reference.digits > 0) {
      AppendGroup(text, groups[2 * reference.group], groups[2 * reference.group + 1], result);
      replacement.remove_prefix(reference.digits);
    } else {
      result += '$';
    }
  }
}

}  // namespace dralo::regional
