#include "database/odbc/page_statement.h"

#include "database/odbc/row_packing.h"
#include "database/statement_text.h"

namespace dralo::database::odbc {

namespace {

/// A comment at the query's end must not swallow the parenthesis.
std::string InParentheses(std::string_view query) { return "(" + std::string(WithoutEnd(query)) + "\n) "; }

std::string Limited(std::string_view query, std::string_view rows) {
  return "SELECT * FROM " + InParentheses(query) + "dralo_row LIMIT " + std::string(rows);
}

}  // namespace

std::string NoRowStatement(std::string_view query) { return Limited(query, "0"); }

std::string OneRowStatement(std::string_view query) { return Limited(query, "1"); }

/// The numbers are no constants to the planner. A function that parallel workers may not call keeps them
/// away, whose rows come in any order. It is never called: the join, which adds nothing to any row, keeps a
/// sort from being done for the first rows only, which would give equal keys another order. The comment hides
/// the join from the driver, which would take all columns for nullable.
std::string PageStatement(std::string_view query, std::string_view rows, std::string_view offset) {
  std::string statement = "SELECT dralo_row.* FROM " + InParentheses(query);
  statement.append("dralo_row LEFT/**/JOIN current_schema() ON false LIMIT (SELECT ").append(rows);
  return statement.append("::bigint) OFFSET (SELECT ").append(offset).append("::bigint)");
}

std::string PackedPageStatement(std::string_view query, std::size_t columns) {
  return "SELECT * FROM (SELECT string_agg(" + PackedRowText(columns) + ", " + SeparatorLiteral() +
         ") FROM (" + PageStatement(query, "?", "?") + ") " + PackedSource("dralo_page", columns) +
         ") dralo_rows LEFT JOIN " + InParentheses(query) + "dralo_none ON false";
}

}  // namespace dralo::database::odbc
