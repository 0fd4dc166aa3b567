#pragma once

#include <sqlite3.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::database::sqlite {

using TextRows = std::vector<std::vector<std::string>>;

/// The rows of a short query about the database itself, every value as text, Null as "". Throws
/// platform::Error.
TextRows Ask(sqlite3* connection, std::string_view text,
             std::initializer_list<std::string_view> parameters = {});

}  // namespace dralo::database::sqlite
