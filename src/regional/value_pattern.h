#pragma once

#include <memory>
#include <string_view>

#include "platform/value_formatting.h"
#include "regional/date_pattern.h"
#include "regional/number_forms.h"

namespace dralo::regional {

/// What patterns need of a locale; it must outlive them.
struct PatternContext {
  const platform::ValueFormatting& formatting;
  const NumberForms& numbers;
  const LocaleFacts& facts;
};

/// See platform::ValueFormatting::MakePattern(); `rule` must not have a 0.
std::unique_ptr<platform::FormatPattern> MakeValuePattern(std::string_view pattern, platform::WeekRule rule,
                                                          const PatternContext& context);

}  // namespace dralo::regional
