#pragma once

#include <cstdint>
#include <string_view>

#include "dralo/variant.h"
#include "platform/formatting.h"

namespace dralo::state {

/// The whole number that `value` is or spells, fractions rounded half to even. Throws platform::Error when it
/// is no number or does not fit; `what` names it in the message ("Morvu1CurrRecord"). The message does not
/// repeat the value, because a value from a request must not reach the page unescaped.
std::int32_t ToInt32(const platform::Formatting& formatting, const platform::VariantView& value,
                     std::string_view what);
std::int16_t ToInt16(const platform::Formatting& formatting, const platform::VariantView& value,
                     std::string_view what);

}  // namespace dralo::state
