#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "options.h"

namespace serve {

/// Whether an address can be reached only from this machine.
bool IsLoopback(std::string_view host);

/// The names and addresses under which the pages can be reached, in lower case; those of IPv6 in brackets.
std::vector<std::string> HostNames(const Options& options);

/// The value of the header Host without its port, in lower case.
std::string NameOfHost(std::string_view header);

}  // namespace serve
