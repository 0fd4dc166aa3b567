#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dralo::database::odbc {

/// Statements of PostgreSQL that yield a part of what a query yields, with the same columns where nothing
/// else is said. The query must be one that may stand in another one; ";" at its end does not count.

/// No row.
std::string NoRowStatement(std::string_view query);

/// The first row.
std::string OneRowStatement(std::string_view query);

/// `rows` rows behind the first `offset` ones. The plan does not depend on the numbers, which may be "?", and
/// so gives equal sort keys the same order on all pages.
std::string PageStatement(std::string_view query, std::string_view rows, std::string_view offset);

/// The page of a query with `columns` columns for the two parameters "rows" and "offset", to be prepared. It
/// has one row: in the first column all rows of the page, packed, Null when there are none; then the columns
/// of the query, always Null, which make PostgreSQL refuse the statement once they are other ones than when
/// it was prepared.
std::string PackedPageStatement(std::string_view query, std::size_t columns);

}  // namespace dralo::database::odbc
