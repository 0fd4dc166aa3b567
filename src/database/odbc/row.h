#pragma once

#include <sql.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "database/odbc/link.h"
#include "database/odbc/reading.h"
#include "dralo/variant.h"

namespace dralo::database::odbc {

/// The row on which a statement stands. Its values are taken from the driver one after the other, long ones
/// in pieces, because every driver can do that.
class Row {
 public:
  /// For the results of `statement`, whose columns are read by `readings`.
  Row(const Link& link, SQLHSTMT statement, const std::vector<Reading>& readings);

  /// Goes to the next row. False at the end of the result. Throws platform::Error, whose statement is `text`.
  bool Fetch(std::string_view text);

  /// Valid until the next Fetch().
  platform::VariantView Value(std::size_t column);

 private:
  struct Cell {
    Reading reading;
    std::vector<char> room;  ///< Grows with the longest value.
    std::size_t size = 0;
    bool is_null = false;
    std::string scratch = {};
  };

  void Read(SQLUSMALLINT number, Cell& cell, std::string_view text) const;

  const Link& link_;
  const SQLHSTMT statement_;
  std::vector<Cell> cells_;
};

}  // namespace dralo::database::odbc
