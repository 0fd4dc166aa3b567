#pragma once

#include <string>

namespace dralo::regional {

/// Versions of the libraries that this process runs with, such as "72.1" and "10.42 2022-12-11".
std::string IcuVersion();
std::string Pcre2Version();

}  // namespace dralo::regional
