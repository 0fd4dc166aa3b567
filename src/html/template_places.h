#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "html/template_scanner.h"
#include "html/value_place.h"

namespace dralo::html {

/// What the values between the literals of a template are. Throws platform::Error, which says why, when that
/// cannot be told, or when the template does not end where it began.
std::vector<ValuePlace> FindPlaces(std::span<const std::string_view> literals, TemplateStart start);

}  // namespace dralo::html
