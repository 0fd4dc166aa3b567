#pragma once

#include <cstdint>
#include <string_view>

#include "hand_output.h"

/// The table "orders" as the loops by hand write it. A row is written with a function that writes the value
/// of a column.
namespace hand {

inline constexpr int kColumns = 12;
inline constexpr int kRows = 20;
enum ColumnKind { kNumber, kText, kFlag, kDate, kMemo };
inline constexpr ColumnKind kKinds[kColumns] = {kNumber, kNumber, kText, kText, kText, kNumber,
                                                kNumber, kNumber, kFlag, kDate, kDate, kMemo};

constexpr bool IsRight(int column) { return kKinds[column] == kNumber || kKinds[column] == kFlag; }

/// A row of the grid, as bench_grid_page writes it.
template <class PutValue>
void PutRow(int row, long record, PutValue&& put_value) {
  const std::string_view parity = row % 2 == 1 ? "odd" : "even";
  Put("<tr id=\"drl1row_");
  PutInteger(row);
  Put("\"class=\"DRLOTableTR");
  Put(parity);
  Put("\">\r\n<td id=\"drl1cell_");
  PutInteger(row);
  Put("_0\"class=\"DRLOTableTD");
  Put(parity);
  Put("\"><a class=\"DRLOTable\" href=\"/orders?Morvu1FormDisplay=formOneRec&Morvu1BookMark=");
  PutInteger(record);
  Put("&Morvu1OrderByFields=&Morvu1CurrRecord=");
  PutInteger(record);
  Put("&Morvu1CountRecords=on&Morvu1maxrecords=20\">");
  PutInteger(record);
  Put("</a></td>\r\n");
  for (int column = 0; column < kColumns; ++column) {
    Put("<td id=\"drl1cell_");
    PutInteger(row);
    Put("_");
    PutInteger(column + 1);
    Put("\"class=\"DRLOTableTD");
    Put(parity);
    Put(IsRight(column) ? std::string_view("\" align=\"right\">") : std::string_view("\">"));
    put_value(column);
    Put("</td>\r\n");
  }
  Put("</tr>\r\n");
}

/// What stands in front of the rows: less than a grid writes.
template <class ColumnName>
void PutPageHead(ColumnName&& column_name) {
  Put("<table><tr>");
  for (int column = 0; column < kColumns; ++column) {
    Put("<th><a href=\"?sort=");
    PutInteger(column + 1);
    Put("\">");
    Put(column_name(column));
    Put("</a></th>");
  }
  Put("</tr>\n");
}

inline void PutPageEnd(long first, std::int64_t total) {
  Put("</table><p>");
  for (const long target : {0L, first - kRows, first + kRows, static_cast<long>(total) - kRows}) {
    Put("<a href=\"?first=");
    PutInteger(target);
    Put("\">go</a> ");
  }
  PutInteger(first + 1);
  Put(" of ");
  PutInteger(total);
  Put("</p>\n");
  Flush();
}

/// The spreadsheet, byte for byte as bench_export writes it, with the heads of cells as constants.
template <class ColumnName>
void PutExportHead(ColumnName&& column_name) {
  Put("<table>\r\n<tr>\r\n");
  for (int column = 0; column < kColumns; ++column) {
    Put("<th style=\"border:thin silver solid\"  >");
    Put(column_name(column));
    Put("</th>\r\n");
  }
  Put("</tr>\r\n");
}

template <class PutValue>
void PutExportRow(PutValue&& put_value) {
  Put("<tr>\r\n");
  for (int column = 0; column < kColumns; ++column) {
    Put(IsRight(column) ? std::string_view("<td style=\"border:thin silver solid\"    align=\"right\" >")
                        : std::string_view("<td style=\"border:thin silver solid\"    >"));
    put_value(column);
    Put("</td>\r\n");
  }
  Put("</tr>\r\n");
}

inline void PutExportEnd() {
  Put("</table>");
  Flush();
}

}  // namespace hand
