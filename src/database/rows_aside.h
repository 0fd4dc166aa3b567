#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "database/spool_file.h"

namespace dralo::database {

/// The rest of a result, which is kept until it is read, in its order.
class RowsAside {
 public:
  /// The values of a row as bytes; Null has no data.
  using Row = std::vector<std::string_view>;

  /// To be called before the first Next(). Throws platform::Error when there is no room for the row; those
  /// before it stay.
  void Add(const Row& row);

  /// What Next() throws behind the last row, once.
  void EndBy(std::exception_ptr failure) noexcept { failure_ = std::move(failure); }

  /// The next row, valid until the next call; false at the end. Throws platform::Error when it cannot be read
  /// back; then there are no more.
  bool Next(Row& row);

 private:
  SpoolFile spool_;
  std::uint64_t rows_ = 0;  ///< How many are not read yet.
  std::string packed_;      ///< The row that was added or read last.
  std::exception_ptr failure_;
};

}  // namespace dralo::database
