#pragma once

#include <string>
#include <vector>

#include "record/chance.h"
#include "record/shop_tables.h"

namespace dralo::record {

/// What the visitor mostly wants of a view; the properties and the request may have it otherwise.
enum class Wish { kGrid, kFormView, kFormEdit, kFormAdd, kSave, kInsert, kDelete, kExport };

/// What is decided about one view before its page exists.
struct Plan {
  Wish wish = Wish::kGrid;
  const ShopTable* table = nullptr;
  std::string tag;
  bool is_careful = false;  ///< The page script and the visitor do what is right for the wish.

  bool IsChange() const { return wish == Wish::kSave || wish == Wish::kInsert || wish == Wish::kDelete; }
};

/// The views of one page, the first of which matters most.
std::vector<Plan> MakePlans(Chance& chance);

}  // namespace dralo::record
