#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace dralo::database {

/// Bytes that are first put aside and then taken back once, in their order: a few in memory, the others in a
/// file in the folder for temporary files ($TMPDIR, or /tmp). The file has no name, is gone with this object,
/// and is not passed on to programs that the process starts.
///
/// The file's own position is not used, so a child process of fork(), which shares the file, disturbs nothing
/// by reading or by ending.
class SpoolFile {
 public:
  /// Kept in memory before the file is made.
  static constexpr std::size_t kMaxBytesInMemory = std::size_t{4} << 20;

  SpoolFile() = default;
  ~SpoolFile();
  SpoolFile(const SpoolFile&) = delete;
  SpoolFile& operator=(const SpoolFile&) = delete;

  /// To be called before the first Take(). Throws platform::Error when the file cannot be made or has no
  /// room.
  void Put(std::string_view bytes);

  /// Takes the next `size` bytes. False, and nothing is taken, when fewer are left. Throws platform::Error
  /// when the file cannot be read.
  bool Take(char* to, std::size_t size);

  /// How many bytes were put and not taken yet; no size that is read back can be greater.
  std::uint64_t Left() const { return put_ - taken_; }

 private:
  bool HasFile() const { return descriptor_ >= 0; }
  void MoveToFile();
  void ReadBlock();

  /// The bytes put last; while bytes are taken, some that begin at `taken_`.
  std::string memory_;

  std::size_t position_ = 0;  ///< Of the next byte to take, in the memory.
  std::uint64_t put_ = 0;
  std::uint64_t taken_ = 0;
  std::uint64_t in_file_ = 0;    ///< Bytes written to the file.
  std::uint64_t from_file_ = 0;  ///< Bytes read from it.
  int descriptor_ = -1;
};

}  // namespace dralo::database
