#pragma once

#include <string>
#include <vector>

namespace dralo::host {

/// What a part of the component runs with.
struct LibraryInUse {
  std::string part;     ///< Such as "Provider SQLite".
  std::string library;  ///< Name and version, or why there is none.
};

/// In the order in which people are shown it. The first call loads the client libraries; the list lives as
/// long as the process.
const std::vector<LibraryInUse>& LibrariesInUse();

}  // namespace dralo::host
