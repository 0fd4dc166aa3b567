#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <dralo/dralo.h>

namespace serve {

/// A row with all its values as text; null is empty, numbers are whole.
using TextRow = std::vector<std::string>;

/// Short results of queries on one connection. Used by one thread at a time.
class Rows {
 public:
  /// Opens a connection of its own. Throws dralo::Error.
  Rows(dralo::Environment& environment, const std::string& connection_string);

  /// `parameters` are the values of the "?". Throws dralo::Error.
  std::vector<TextRow> Query(std::string_view sql, const std::vector<std::string>& parameters = {});

 private:
  dralo::Environment& environment_;
  std::shared_ptr<dralo::Connection> connection_;
};

}  // namespace serve
