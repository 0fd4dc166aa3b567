#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "options.h"

namespace serve {

/// Whether an address can be reached from this machine only.
bool IsLoopback(std::string_view host);

/// The names and addresses under which pages are asked for, in small letters; those of IPv6 in brackets.
std::vector<std::string> HostNames(const Options& options);

/// The header Host without its port, in small letters.
std::string NameOfHost(std::string_view header);

}  // namespace serve
