#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database/odbc/reader.h"
#include "dralo/variant.h"

namespace dralo::database::odbc {

/// How a packed row is taken from the driver. Longer ones are fetched one by one.
inline constexpr Reader kPackedReader{Reading::kText, 2048, false};

/// Takes packed rows apart. A text stays as long as values of its row are asked for.
class PackedRow {
 public:
  explicit PackedRow(std::vector<Reader> readers)
      : readers_(std::move(readers)), scratch_(readers_.size()), fields_(readers_.size()) {}

  /// Takes the row at the front of `text`. Returns what stands behind it.
  std::string_view Parse(std::string_view text);

  platform::VariantView Value(std::size_t column);

 private:
  std::vector<Reader> readers_;
  std::vector<std::string> scratch_;  ///< Per column, for values that are spelled otherwise.
  std::vector<std::optional<std::string_view>> fields_;  ///< Per column; nothing for Null.
};

}  // namespace dralo::database::odbc
