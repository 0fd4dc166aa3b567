#pragma once

#include <string>
#include <string_view>

#include "dralo/variant.h"

namespace dralo::database {

/// An amount as a server writes it in the form of its locale, such as "-$1,234.50" or "(1.234,50 €)", as an
/// exact number in `scratch`, which must outlive it: the last "." or "," separates the decimals when one or
/// two digits follow it. A text without an amount stays a text.
platform::VariantView ReadMoney(std::string_view text, std::string& scratch);

}  // namespace dralo::database
