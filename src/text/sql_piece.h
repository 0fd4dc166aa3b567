#pragma once

#include <cstddef>
#include <string_view>

namespace dralo::text {

/// The first piece of a statement, which is not empty: a text or name in quotes, a comment, a run of blanks,
/// a word or number, or a single sign; "??", which some databases read as an operator, is one piece. Quotes
/// are also those of PostgreSQL, E'...' with backslashes and $tag$...$tag$. Quotes and comments that are not
/// closed reach to the end.
std::string_view FirstSqlPiece(std::string_view statement);

/// Whether the piece is a comment or blanks.
bool IsSqlSpace(std::string_view piece);

/// How many "?" of the statement stand for parameters.
std::size_t CountSqlParameters(std::string_view statement);

}  // namespace dralo::text
