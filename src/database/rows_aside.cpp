#include "database/rows_aside.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "dralo/error.h"

namespace dralo::database {

namespace {

using Size = std::int64_t;
constexpr Size kNull = -1;

void PutSize(std::string& to, Size size) { to.append(reinterpret_cast<const char*>(&size), sizeof size); }

/// An impossible size means that somebody else has written to the file.
void Require(bool is_possible) {
  if (!is_possible) throw platform::Error("The rest of a result cannot be read from its temporary file");
}

Size TakeSize(std::string_view& from) {
  Size size = 0;
  Require(from.size() >= sizeof size);
  std::memcpy(&size, from.data(), sizeof size);
  from.remove_prefix(sizeof size);
  Require(size >= kNull && std::cmp_less_equal(size, from.size()));
  return size;
}

}  // namespace

void RowsAside::Add(const Row& row) {
  Size size = 0;
  for (const std::string_view value : row) size += static_cast<Size>(sizeof(Size) + value.size());
  packed_.clear();
  PutSize(packed_, size);
  for (const std::string_view value : row) {
    PutSize(packed_, value.data() == nullptr ? kNull : static_cast<Size>(value.size()));
    packed_.append(value);
  }
  spool_.Put(packed_);
  ++rows_;
}

bool RowsAside::Next(Row& row) {
  if (rows_ == 0 && failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
  if (rows_ == 0) return false;
  const std::uint64_t behind = std::exchange(rows_, 0) - 1;
  Size size = 0;
  Require(spool_.Take(reinterpret_cast<char*>(&size), sizeof size));
  Require(size >= 0 && std::cmp_less_equal(size, spool_.Left()));
  packed_.resize(static_cast<std::size_t>(size));
  spool_.Take(packed_.data(), packed_.size());
  std::string_view rest = packed_;
  for (std::string_view& value : row) {
    const Size bytes = TakeSize(rest);
    value = bytes == kNull ? std::string_view{} : rest.substr(0, static_cast<std::size_t>(bytes));
    rest.remove_prefix(static_cast<std::size_t>(std::max<Size>(bytes, 0)));
  }
  rows_ = behind;
  return true;
}

}  // namespace dralo::database
