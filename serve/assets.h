#pragma once

#include <string_view>

namespace serve {

/// A file that the program brings along.
struct Asset {
  std::string_view name;  ///< Such as "dralo.css" and "gfx/nextpg.gif".
  std::string_view type;
  std::string_view data;
};

/// None of that name: nullptr.
const Asset* FindAsset(std::string_view name);

}  // namespace serve
