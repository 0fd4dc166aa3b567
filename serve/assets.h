#pragma once

#include <string_view>

namespace serve {

/// A file that is built into the program.
struct Asset {
  std::string_view name;  ///< Such as "dralo.css" and "gfx/nextpg.gif".
  std::string_view type;
  std::string_view data;
};

/// nullptr when there is none of that name.
const Asset* FindAsset(std::string_view name);

}  // namespace serve
