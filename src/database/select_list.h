#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dralo::database {

/// The names that a query gives to fields by itself ("a AS b", "a b", "a + 1 b"): its fields of these names
/// may be other columns than they are called.
std::vector<std::string> GivenNames(std::string_view query);

/// Whether the query may read the table more than once for the rows that it yields, so that a field may be of
/// either. What it compares in its conditions does not count.
bool NamesTwice(std::string_view query, std::string_view table);

}  // namespace dralo::database
