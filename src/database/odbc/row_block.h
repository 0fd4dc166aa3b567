#pragma once

#include <sql.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "database/odbc/link.h"
#include "database/odbc/reader.h"
#include "dralo/variant.h"

namespace dralo::database::odbc {

/// Rows that the driver writes into memory of this object, many at a time where every value has room there.
/// Values that do not fit are fetched in pieces when they are asked for.
class RowBlock {
 public:
  /// For the results of `statement`, of which at most `max_rows` (0 for unknown) are wanted.
  RowBlock(const Link& link, SQLHSTMT statement, const std::vector<Reader>& readers, std::int64_t max_rows);
  ~RowBlock();
  RowBlock(const RowBlock&) = delete;
  RowBlock& operator=(const RowBlock&) = delete;

  /// Fetches the next rows. Returns how many, 0 at the end of the result. Throws platform::Error, whose
  /// statement is `text`.
  std::size_t Fetch(std::string_view text);

  /// The bytes of the only column of a block, "" for Null; valid like Value().
  std::string_view Text(std::size_t row);

  /// Valid until the next Fetch(), or until the same column of another row is asked for.
  platform::VariantView Value(std::size_t row, std::size_t column);

  /// The same, but dates and times as the texts that they were read from.
  platform::VariantView Stored(std::size_t row, std::size_t column);

 private:
  struct Binding {
    Reader reader;
    char* cells = nullptr;         ///< One per row; nullptr when values are fetched one by one.
    SQLLEN* indicators = nullptr;  ///< Bytes of a value, SQL_NULL_DATA, or SQL_NO_TOTAL.
    std::string long_value = {};   ///< A value that was fetched in pieces.
    std::string scratch = {};
    std::size_t long_row = 0;  ///< Counting from 1; whose value `long_value` is.
    bool is_long_null = false;
  };

  platform::VariantView Value(std::size_t row, std::size_t column, Reading reading);
  void Bind();
  static bool HasRoom(const Binding& binding, std::size_t row);
  void FetchCell(std::size_t row, std::size_t column);
  void ReadPieces(SQLUSMALLINT number, Binding& binding);
  void FetchCellsInOrder();

  const Link& link_;
  const SQLHSTMT statement_;
  std::vector<Binding> bindings_;
  std::size_t rows_ = 1;
  std::unique_ptr<char[]> memory_;
  std::unique_ptr<SQLLEN[]> indicators_;
  SQLULEN fetched_ = 0;
  std::string_view text_;
};

}  // namespace dralo::database::odbc
