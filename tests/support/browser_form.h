#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "dralo/request.h"

namespace dralo::tests {

/// The bytes of a page as a browser understands them: what is no UTF-8 and NUL replaced, every line break one
/// line feed.
std::string AsReadByBrowser(std::string_view page);

/// What a browser posts when a visitor opens the page and presses its submit button of that name without
/// touching anything else: names and values with character references decoded, without the disabled controls
/// and the unticked boxes, with CRLF for every line break. Without a button, what pressing none posts. For
/// pages with one form.
std::vector<platform::RequestField> PostedByBrowser(std::string_view page, std::string_view button = {});

}  // namespace dralo::tests
