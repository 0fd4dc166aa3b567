#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace dralo::database::odbc {

/// Rows of PostgreSQL that come as one text each: a number whose bits tell which values are Null, from the
/// first column on, then the values that are not. FieldSeparator() stands between all of them and between
/// rows. The driver takes longer to hand over a value than PostgreSQL to send it, so a row, or a page of
/// rows, is a single one.

/// As many bits as a number of PostgreSQL has, but the sign.
inline constexpr std::size_t kMaxPackedColumns = 63;

inline constexpr std::size_t kSeparatorBytes = 8;

/// Not found in values: nobody outside of this process knows it. The same as long as the process lives.
/// Of kSeparatorBytes bytes.
const std::string& FieldSeparator();

/// As it stands in a statement: spelled otherwise, so that a statement that is a value itself does not hold
/// it.
std::string SeparatorLiteral();

/// "name(c1, c2, ...)": a query that stands before it in a FROM gets these names for its columns.
std::string PackedSource(std::string_view name, std::size_t columns);

/// The row of such a query as one text.
std::string PackedRowText(std::size_t columns);

}  // namespace dralo::database::odbc
