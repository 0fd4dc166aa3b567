#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "database/postgresql/libpq.h"
#include "dralo/variant.h"

namespace dralo::database::postgresql {

/// Values for a statement, in the form in which the client library takes them. Each has the type that it
/// would have if it were written into the statement; texts and Null have the type of their place.
class Parameters {
 public:
  Parameters() = default;

  /// Throws platform::Error when a text contains a zero byte.
  explicit Parameters(std::span<const platform::Variant> values);

  void Add(const platform::Variant& value);

  /// Adds a number of 64 bits, whatever its value; nothing is Null.
  void AddNumber(std::optional<std::int64_t> number);

  int Count() const { return static_cast<int>(types_.size()); }
  const std::vector<Oid>& Types() const { return types_; }

  /// One per value; valid until the next Add().
  std::vector<const char*> Values() const;
  const std::vector<int>& Lengths() const { return lengths_; }
  const std::vector<int>& Formats() const { return formats_; }

 private:
  std::vector<Oid> types_;
  std::vector<std::string> texts_;
  std::vector<bool> nulls_;
  std::vector<int> lengths_;
  std::vector<int> formats_;
};

}  // namespace dralo::database::postgresql
