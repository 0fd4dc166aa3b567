#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dralo::database {

/// Bytes that are put aside first and taken back once, in their order: a few in memory, the others in a file
/// of the folder for temporary files ($TMPDIR, or /tmp) that has no name, goes with this object, and is not
/// passed on to programs that the process starts.
///
/// The file has no position of its own, so that a child process of fork(), which shares it, disturbs nothing
/// by reading or by ending.
class SpoolFile {
 public:
  /// Held in memory before the file is made.
  static constexpr std::size_t kMaxBytesInMemory = std::size_t{4} << 20;

  SpoolFile() = default;
  ~SpoolFile();
  SpoolFile(const SpoolFile&) = delete;
  SpoolFile& operator=(const SpoolFile&) = delete;

  /// Before the first Take(). Throws platform::Error when the file cannot be made or has no room.
  void Put(std::string_view bytes);

  /// The next `size` bytes. False, and nothing is taken, when fewer are left. Throws platform::Error when the
  /// file cannot be read.
  bool Take(char* to, std::size_t size);

  /// Bytes that were put and not taken yet; a size that was read back can be no greater.
  std::uint64_t Left() const { return put_ - taken_; }

 private:
  bool HasFile() const { return descriptor_ >= 0; }
  void MoveToFile();
  void ReadBlock();

  /// What was put last; while bytes are taken, some from where `taken_` is.
  std::string memory_;

  std::size_t position_ = 0;  ///< Of the next byte to be taken, in the memory.
  std::uint64_t put_ = 0;
  std::uint64_t taken_ = 0;
  std::uint64_t in_file_ = 0;    ///< Bytes written to the file.
  std::uint64_t from_file_ = 0;  ///< Bytes read from it.
  int descriptor_ = -1;
};

}  // namespace dralo::database
