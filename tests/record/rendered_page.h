#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>

#include "record/journal.h"
#include "record/product.h"
#include "record/shop.h"

namespace dralo::record {

/// All that is known of one page.
struct RenderedPage {
  std::string text;  ///< All that is observable.
  /// Whether nothing in the text is another library's: the texts of locales and messages of SQLite.
  bool is_portable = false;
};

/// Renders pages by their numbers. A page depends on its number alone.
class PageMaker {
 public:
  PageMaker();
  RenderedPage Make(std::uint64_t number);

 private:
  Environment& EnvironmentOf(std::size_t locale);

  Shop shop_;
  std::array<std::unique_ptr<Environment>, 4> environments_;
};

}  // namespace dralo::record
