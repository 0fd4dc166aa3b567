#include "database/mariadb/row_store.h"

#include <cstring>

#include "dralo/error.h"

namespace dralo::database::mariadb {

void RowStore::Put(std::string_view bytes) {
  memory_ += bytes;
  if (memory_.size() > kMaxBytesInMemory) Flush();
}

void RowStore::Flush() {
  if (!file_) file_.reset(std::tmpfile());
  const bool is_written =
      file_ && std::fwrite(memory_.data(), 1, memory_.size(), file_.get()) == memory_.size();
  if (!is_written) {
    throw platform::Error("The folder for temporary files has no room for the rest of a result");
  }
  memory_.clear();
}

void RowStore::Rewind() {
  if (!file_) return;
  Flush();
  if (std::fflush(file_.get()) == 0 && std::fseek(file_.get(), 0, SEEK_SET) == 0) return;
  throw platform::Error("The folder for temporary files has no room for the rest of a result");
}

bool RowStore::Take(char* to, std::size_t size) {
  if (file_) return std::fread(to, 1, size, file_.get()) == size;
  if (memory_.size() - position_ < size) return false;
  std::memcpy(to, memory_.data() + position_, size);
  position_ += size;
  return true;
}

}  // namespace dralo::database::mariadb
