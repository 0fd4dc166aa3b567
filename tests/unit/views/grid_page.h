#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "support/contains.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {

/// A table T with the column N and the rows 1 to `count`.
inline Records Numbers(int count) {
  return Records(
      "CREATE TABLE T (N INTEGER); WITH RECURSIVE C(N) AS (SELECT 1 UNION ALL SELECT N + 1 FROM C "
      "WHERE N < " +
      std::to_string(count) + ") INSERT INTO T SELECT N FROM C");
}

inline int CountOf(std::string_view part, std::string_view text) {
  int count = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

/// A grid of two people, or of the records that a test asks for.
struct GridPage : testing::Test, Rendering {
  using Rendering::Grid;
  std::string Grid(const Records& records) { return Rendering::Grid(*records); }
  std::string Grid() {
    return Grid(
        Records("CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Member BOOLEAN);"
                "INSERT INTO T VALUES (5, 'Ann', 1), (6, NULL, 0)"));
  }
};

using DataGrid = GridPage;

/// A grid without header and row numbers.
struct DataGridRows : GridPage {
  DataGridRows() { settings.DisplayHeader = settings.GridDisplayIndex = false; }
};

/// The rows of a grid of one column with these cells: of each what stands behind its id and class, such as
/// ">Ann" or " align=\"right\">7".
inline std::string RowsOf(std::initializer_list<std::string_view> cells) {
  std::string rows;
  for (const std::string_view cell : cells) {
    const std::string number = std::to_string(CountOf("<tr", rows) + 1);
    const std::string parity = CountOf("<tr", rows) % 2 == 0 ? "odd" : "even";
    rows += "<tr id=\"drl1row_" + number + "\"class=\"DRLOTableTR" + parity + "\">\r\n" +  //
            "<td id=\"drl1cell_" + number + "_1\"class=\"DRLOTableTD" + parity + "\"";
    rows.append(cell).append("</td>\r\n</tr>\r\n");
  }
  return rows;
}

/// The same on a page without classes.
inline std::string RowsWithoutClassesOf(std::initializer_list<std::string_view> cells) {
  std::string rows;
  for (const std::string_view cell : cells) {
    const std::string number = std::to_string(CountOf("<tr", rows) + 1);
    rows += "<tr id=\"drl1row_" + number + "\">\r\n<td id=\"drl1cell_" + number + "_1\"";
    rows.append(cell).append("</td>\r\n</tr>\r\n");
  }
  return rows;
}

}  // namespace dralo::tests
