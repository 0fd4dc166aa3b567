#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace dralo::database::mariadb {

/// Bytes that are put aside and read once, in their order. Few are kept in memory, many in a temporary file
/// that has no name, so that however many they are takes no more memory.
class RowStore {
 public:
  static constexpr std::size_t kMaxBytesInMemory = 4'194'304;

  /// Throws platform::Error when the file cannot be made or written.
  void Put(std::string_view bytes);

  /// After the last Put(). Throws like that.
  void Rewind();

  /// False at the end.
  bool Take(char* to, std::size_t size);

 private:
  struct Closer {
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
  };

  void Flush();

  std::string memory_;
  std::size_t position_ = 0;  ///< In the memory.
  std::unique_ptr<std::FILE, Closer> file_;
};

}  // namespace dralo::database::mariadb
