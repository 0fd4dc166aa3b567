#pragma once

#include <memory>
#include <string_view>

#include "platform/value_formatting.h"
#include "regional/date_pattern.h"
#include "regional/number_forms.h"

namespace dralo::regional {

/// What patterns take from a locale; it must outlive them.
struct PatternContext {
  const platform::ValueFormatting& formatting;
  const NumberForms& numbers;
  const LocaleFacts& facts;
};

/// See platform::ValueFormatting::MakePattern(); `rule` has no 0 in it.
std::unique_ptr<platform::FormatPattern> MakeValuePattern(std::string_view pattern, platform::WeekRule rule,
                                                          const PatternContext& context);

}  // namespace dralo::regional
