#pragma once

#include <string_view>
#include <vector>

#include "dralo/request.h"

namespace dralo::host {

/// The fields of a query string or of a form posted as application/x-www-form-urlencoded, decoded, in their
/// order. Empty pairs ("a=1&&b=2") and fields with an empty name are skipped; a name without "=" has an empty
/// value; a "%" that two hexadecimal digits do not follow stands for itself. Any bytes are accepted.
std::vector<platform::RequestField> ParseUrlEncoded(std::string_view text);

}  // namespace dralo::host
