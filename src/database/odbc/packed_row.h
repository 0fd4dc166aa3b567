#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "database/odbc/reader.h"
#include "platform/variant.h"

namespace dralo::database::odbc {

/// How a packed row is taken from the driver. Longer ones are fetched one by one.
inline constexpr Reader kPackedReader{Reading::kText, 2048, false};

/// A row of PostgreSQL as one text: "(1,Anvil,,""...)". The driver takes longer to hand over a value than
/// PostgreSQL to send it, so a row comes as a single one.
class PackedRow {
 public:
  explicit PackedRow(std::vector<Reader> readers) : readers_(std::move(readers)), scratch_(readers_.size()) {}

  /// Takes the row at the front of `text` apart, in its own place. It must stay there as long as values are
  /// asked for. Returns what stands behind the row.
  std::span<char> Parse(std::span<char> text);

  platform::VariantView Value(std::size_t column);

 private:
  std::vector<Reader> readers_;
  std::vector<std::string> scratch_;  ///< Per column, for values that are spelled otherwise.
  std::vector<std::optional<std::string_view>> fields_;  ///< Per column; nothing for Null.
};

}  // namespace dralo::database::odbc
