#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "database/mariadb/column_type.h"
#include "database/mariadb/library.h"
#include "database/rows_aside.h"
#include "dralo/variant.h"

namespace dralo::database::mariadb {

/// The current row of a result, in memory that the library fills. The memory does not move.
class Row {
 public:
  explicit Row(const std::vector<Reader>& readers);
  Row(const Row&) = delete;
  Row& operator=(const Row&) = delete;

  /// Tells the library where to put the row. Throws platform::Error.
  void Bind(MYSQL_STMT* statement);

  /// After a fetch that has cut values: makes room and reads them completely. The larger room is bound for
  /// the following rows too. Throws platform::Error.
  void ReadCutValues(MYSQL_STMT* statement);

  /// Copies a row of texts; a null pointer is Null.
  void SetTexts(MYSQL_ROW texts, const unsigned long* sizes);

  /// Throws platform::Error when there is no room.
  void Save(RowsAside& rows);

  /// Becomes the next saved row; false when there is none. Throws platform::Error when it cannot be read
  /// back, or what ended the rows.
  bool Load(RowsAside& rows);

  platform::VariantView Value(std::size_t column);

  /// Of those values that have no fixed size.
  std::size_t ByteCount() const;

 private:
  /// One value: a number or a time, or bytes, of which `size` count.
  struct Cell {
    Reader reader = {};
    my_bool is_null = 0;
    my_bool is_cut = 0;
    unsigned long size = 0;
    std::int64_t integer = 0;
    double number = 0;
    MYSQL_TIME time = {};
    std::string bytes = {};

    std::string_view Text() const { return std::string_view(bytes).substr(0, size); }

    /// The number or the time; empty for a value that is kept as bytes.
    std::span<const char> Fixed() const;
    std::span<char> Fixed();
  };

  static MYSQL_BIND BindOf(Cell& cell);
  static platform::VariantView ReadTime(Cell& cell);

  std::vector<Cell> cells_;
  std::vector<MYSQL_BIND> binds_;
  RowsAside::Row bytes_;  ///< Of the row that was saved or loaded last.
};

}  // namespace dralo::database::mariadb
