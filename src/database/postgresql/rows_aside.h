#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "database/spool_file.h"

namespace dralo::database::postgresql {

/// The values of a row as the server sends them; Null has no data.
using Row = std::vector<std::string_view>;

/// Rows that are kept until they are read, in their order.
class RowsAside {
 public:
  /// To be called before the first Next(). Throws platform::Error when there is no room for the row; those
  /// before it stay.
  void Add(const Row& row);

  /// The next row, valid until the next call; false at the end. Throws platform::Error when it cannot be read
  /// back.
  bool Next(Row& row);

 private:
  SpoolFile spool_;
  std::uint64_t rows_ = 0;  ///< How many are not read yet.
  std::string packed_;      ///< The row that was added or read last.
};

}  // namespace dralo::database::postgresql
