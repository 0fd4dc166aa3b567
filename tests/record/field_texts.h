#pragma once

#include <string>

#include "record/chance.h"
#include "record/shop_tables.h"

namespace dralo::record {

/// What a visitor types into a field of that kind; of a hundred texts so many do not suit it.
std::string FieldText(FieldKind kind, Chance& chance, std::size_t wrong_percent);

}  // namespace dralo::record
