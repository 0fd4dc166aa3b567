#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dralo::database {

/// The names that a query gives to fields by itself ("a AS b", "a b", "a + 1 b"): its fields of these names
/// may be other columns than they are called.
std::vector<std::string> GivenNames(std::string_view query);

/// Whether the query names the table more than once behind its FROM, so that a field may be of either.
bool NamesTwice(std::string_view query, std::string_view table);

}  // namespace dralo::database
