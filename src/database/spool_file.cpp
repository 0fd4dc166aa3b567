#include "database/spool_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "dralo/error.h"

namespace dralo::database {

namespace {

constexpr std::size_t kBlockBytes = std::size_t{64} << 10;

[[noreturn]] void SayThereIsNoRoom() {
  throw platform::Error("The folder for temporary files has no room for the rest of a result");
}

/// Not every file system can make a file without a name.
int OpenNamelessFile() {
  const char* const wanted = std::getenv("TMPDIR");
  const std::string folder = wanted != nullptr && *wanted != '\0' ? wanted : "/tmp";
  const int nameless = open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC | O_EXCL, S_IRUSR | S_IWUSR);
  if (nameless >= 0) return nameless;
  std::string path = folder + "/dralo-XXXXXX";
  const int named = mkostemp(path.data(), O_CLOEXEC);
  if (named < 0) SayThereIsNoRoom();
  unlink(path.c_str());
  return named;
}

}  // namespace

SpoolFile::~SpoolFile() {
  if (HasFile()) close(descriptor_);
}

void SpoolFile::Put(std::string_view bytes) {
  memory_ += bytes;
  put_ += bytes.size();
  if (memory_.size() > kMaxBytesInMemory) MoveToFile();
}

void SpoolFile::MoveToFile() {
  if (!HasFile()) descriptor_ = OpenNamelessFile();
  for (std::size_t done = 0; done < memory_.size();) {
    const ssize_t written = pwrite(descriptor_, memory_.data() + done, memory_.size() - done,
                                   static_cast<off_t>(in_file_ + done));
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) SayThereIsNoRoom();
    done += static_cast<std::size_t>(written);
  }
  in_file_ += memory_.size();
  memory_.clear();
}

bool SpoolFile::Take(char* to, std::size_t size) {
  if (size > Left()) return false;
  if (taken_ == 0 && HasFile()) MoveToFile();
  while (size > 0) {
    if (position_ == memory_.size()) ReadBlock();
    const std::size_t part = std::min(size, memory_.size() - position_);
    std::memcpy(to, memory_.data() + position_, part);
    position_ += part;
    taken_ += part;
    to += part;
    size -= part;
  }
  return true;
}

void SpoolFile::ReadBlock() {
  position_ = 0;
  memory_.resize(kBlockBytes);
  ssize_t size = -1;
  do {
    size = pread(descriptor_, memory_.data(), memory_.size(), static_cast<off_t>(from_file_));
  } while (size < 0 && errno == EINTR);
  memory_.resize(static_cast<std::size_t>(std::max<ssize_t>(size, 0)));
  if (size <= 0) throw platform::Error("The rest of a result cannot be read from its temporary file");
  from_file_ += static_cast<std::uint64_t>(size);
}

}  // namespace dralo::database
