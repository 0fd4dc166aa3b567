#pragma once

#include <string_view>
#include <vector>

#include "dralo/request.h"

namespace dralo::host {

/// Whether the type of a body, as the header Content-Type says it, is multipart/form-data.
bool IsMultipart(std::string_view content_type);

/// The fields of such a body in their order, without files and fields with an empty name; names and values as
/// they came. A part that is broken off is left out, and all are when the type names no boundary. Any bytes
/// are accepted.
std::vector<platform::RequestField> ParseMultipart(std::string_view content_type, std::string_view body);

}  // namespace dralo::host
