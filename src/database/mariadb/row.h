#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "database/mariadb/column_type.h"
#include "database/mariadb/library.h"
#include "database/spool_file.h"
#include "dralo/variant.h"

namespace dralo::database::mariadb {

/// The current row of a result, in memory that the library fills. It stays where it is.
class Row {
 public:
  explicit Row(const std::vector<Reader>& readers);
  Row(const Row&) = delete;
  Row& operator=(const Row&) = delete;

  /// Tells the library where the row is. Throws platform::Error.
  void Bind(MYSQL_STMT* statement);

  /// After a fetch that has cut values: gives them room and reads them whole. More room is bound for the rows
  /// behind. Throws platform::Error.
  void ReadCutValues(MYSQL_STMT* statement);

  /// Copies a row of texts; a null pointer is Null.
  void SetTexts(MYSQL_ROW texts, const unsigned long* sizes);

  platform::VariantView Value(std::size_t column);

  /// Of the values that have no fixed size.
  std::size_t ByteCount() const;

  void Save(SpoolFile& spool) const;

  /// Takes the next row of those that were saved. Throws platform::Error when it is not there as a whole.
  void Load(SpoolFile& spool);

 private:
  /// One value: a number or a time, or bytes of which `size` count.
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

    /// Where the number or the time is; empty of a value that is kept as bytes.
    std::span<const char> Fixed() const;
    std::span<char> Fixed();
  };

  static MYSQL_BIND BindOf(Cell& cell);
  static platform::VariantView ReadTime(Cell& cell);

  std::vector<Cell> cells_;
  std::vector<MYSQL_BIND> binds_;
};

}  // namespace dralo::database::mariadb
