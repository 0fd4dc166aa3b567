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

  /// The most rows that will be asked for; 0 means all. A hint: more may come.
  std::int64_t max_records = 0;

  /// Whether the rows are to be changed, or one is to be added, perhaps without reading any.
  bool is_updatable = false;

  /// A statement of one value that counts the rows, when Session::CountBeside() is to run it; else empty.
  std::string_view counting = {};
  std::span<const platform::Variant> counting_parameters = {};
};

}  // namespace dralo::database
