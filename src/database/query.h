#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "dralo/variant.h"

namespace dralo::database {

/// A statement to run.
struct Query {
  std::string_view text = {};

  /// Values of the "?" in the text, in their order.
  std::span<const platform::Variant> parameters = {};

  /// The highest number of rows that are asked for; 0 means all. A hint: more may come.
  std::int64_t max_records = 0;

  /// Whether the rows are to be changed, perhaps only to add one without reading any.
  bool is_updatable = false;

  /// The statement of one value that counts the rows, where Session::CountBeside() is going to be asked for
  /// it; otherwise empty.
  std::string_view counting = {};
  std::span<const platform::Variant> counting_parameters = {};
};

}  // namespace dralo::database
