#include "database/postgresql/rows_aside.h"

#include <algorithm>
#include <cstring>

#include "dralo/error.h"

namespace dralo::database::postgresql {

namespace {

constexpr std::size_t kMaxMemoryBytes = std::size_t{8} << 20;

using Size = std::int64_t;
constexpr Size kNull = -1;

void PutSize(std::string& to, Size size) { to.append(reinterpret_cast<const char*>(&size), sizeof size); }

Size TakeSize(std::string_view& from) {
  Size size = 0;
  std::memcpy(&size, from.data(), sizeof size);
  from.remove_prefix(sizeof size);
  return size;
}

}  // namespace

void RowsAside::Add(const Row& row) {
  Size size = 0;
  for (const std::string_view value : row) size += static_cast<Size>(sizeof(Size) + value.size());
  PutSize(memory_, size);
  for (const std::string_view value : row) {
    PutSize(memory_, value.data() == nullptr ? kNull : static_cast<Size>(value.size()));
    memory_.append(value);
  }
  if (memory_.size() > kMaxMemoryBytes) MoveToFile();
}

void RowsAside::MoveToFile() {
  if (!file_) file_.reset(std::tmpfile());
  if (!file_ || std::fwrite(memory_.data(), 1, memory_.size(), file_.get()) != memory_.size()) {
    throw platform::Error("The rows of a long result cannot be kept in a file for temporary data");
  }
  file_bytes_ += static_cast<std::int64_t>(memory_.size());
  memory_.clear();
}

/// False at the end.
bool RowsAside::Take(void* to, std::size_t size) {
  if (file_bytes_ > 0) {
    if (std::fread(to, 1, size, file_.get()) != size) {
      throw platform::Error("The rows of a long result cannot be read from the file for temporary data");
    }
    file_bytes_ -= static_cast<std::int64_t>(size);
    return true;
  }
  if (taken_ + size > memory_.size()) return false;
  std::memcpy(to, memory_.data() + taken_, size);
  taken_ += size;
  return true;
}

bool RowsAside::Next(Row& row) {
  if (!std::exchange(is_read_, true) && file_) std::rewind(file_.get());
  Size size = 0;
  if (!Take(&size, sizeof size)) return false;
  row_.resize(static_cast<std::size_t>(size));
  Take(row_.data(), row_.size());
  std::string_view rest = row_;
  for (std::string_view& value : row) {
    const Size bytes = TakeSize(rest);
    value = bytes == kNull ? std::string_view{} : rest.substr(0, static_cast<std::size_t>(bytes));
    rest.remove_prefix(static_cast<std::size_t>(std::max<Size>(bytes, 0)));
  }
  return true;
}

}  // namespace dralo::database::postgresql
