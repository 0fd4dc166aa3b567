#pragma once

#include <string>
#include <string_view>

namespace dralo::php {

/// The entry of $_SERVER that holds the header, as CGI names it.
std::string VariableOfHeader(std::string_view name);

/// Whether the type of a body, as the header Content-Type says it, is that of forms without files.
bool IsUrlEncodedForm(std::string_view content_type);

}  // namespace dralo::php
