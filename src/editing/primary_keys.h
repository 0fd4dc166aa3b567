#pragma once

#include <string>
#include <string_view>

#include "shell/render.h"

namespace dralo::editing {

/// `sql` restricted to the record whose primary key was posted; empty when that fails, with the reason in
/// ErrorMessage. Not available in this version: reports that and returns "".
std::string GetSqlPK(shell::Render& render, std::string_view sql);

}  // namespace dralo::editing
