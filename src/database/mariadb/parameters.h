#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <vector>

#include "database/mariadb/library.h"
#include "dralo/variant.h"

namespace dralo::database::mariadb {

/// The values of the "?" of a statement, in memory that the library reads. The values do not move.
class Parameters {
 public:
  explicit Parameters(std::span<const platform::Variant> values);
  Parameters(const Parameters&) = delete;
  Parameters& operator=(const Parameters&) = delete;

  /// How many the page has given.
  std::size_t Count() const { return values_.size(); }

  /// Binds all of them, and after them a limit and an offset when the statement takes these, as `has_limit`
  /// says.
  MYSQL_BIND* Bind(bool has_limit, std::int64_t limit, std::int64_t offset);

 private:
  friend struct ParameterBinder;

  struct Slot {
    std::int64_t integer = 0;
    MYSQL_TIME time = {};
    std::string text = {};
  };

  const std::vector<platform::Variant> values_;
  std::deque<Slot> slots_;
  std::vector<MYSQL_BIND> binds_;
};

}  // namespace dralo::database::mariadb
