#pragma once

#include <string_view>

#include "record/chance.h"

namespace dralo::record {

/// Texts that pages assign to the property of that name; those of an unknown name are attributes.
Texts SuitableTexts(std::string_view property);

/// Texts that are wrong nearly everywhere.
Texts AwkwardTexts();

}  // namespace dralo::record
