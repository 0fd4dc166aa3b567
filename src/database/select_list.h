#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dralo::database {

/// The names that a query itself gives to fields ("a AS b", "a b", "a + 1 b"): the fields of these names may
/// be other columns than those of that name.
std::vector<std::string> GivenNames(std::string_view query);

/// Whether the query may read the table more than once for the rows that it yields, so that a field may come
/// from either. Subqueries in its conditions do not count.
bool NamesTwice(std::string_view query, std::string_view table);

}  // namespace dralo::database
