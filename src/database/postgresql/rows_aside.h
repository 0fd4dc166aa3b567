#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::database::postgresql {

/// The values of a row as the server sends them; Null has no data.
using Row = std::vector<std::string_view>;

/// Rows that are kept until they are read, in their order: in memory, and when they are many in a file that
/// nobody else sees and that goes with this object.
class RowsAside {
 public:
  /// Throws platform::Error when there is no room for it.
  void Add(const Row& row);

  /// After all were added: the next row, valid until the next call; false at the end. Throws platform::Error
  /// when the file cannot be read.
  bool Next(Row& row);

 private:
  struct Closer {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
  };

  void MoveToFile();
  bool Take(void* to, std::size_t size);

  std::string memory_;  ///< Behind what stands in the file.
  std::size_t taken_ = 0;
  std::unique_ptr<std::FILE, Closer> file_;
  std::int64_t file_bytes_ = 0;  ///< That are not read yet.
  bool is_read_ = false;
  std::string row_;
};

}  // namespace dralo::database::postgresql
