#pragma once

#include <span>
#include <string>
#include <string_view>

namespace dralo::database {

/// What a client library says, on one line: white space between words is one blank, there is none at the
/// ends, and the words of `noise` are left out.
std::string MessageLine(std::string_view message, std::span<const std::string_view> noise = {});

}  // namespace dralo::database
