#include "database/odbc/row_packing.h"

#include <cstdint>
#include <random>

namespace dralo::database::odbc {

namespace {

std::string MakeSeparator() {
  std::random_device device;
  std::uniform_int_distribution<int> letter('a', 'z');
  std::string separator = "\x1f";
  while (separator.size() < kSeparatorBytes) separator += static_cast<char>(letter(device));
  return separator;
}

/// "c1, c2, ..."
std::string ColumnNames(std::size_t columns) {
  std::string names;
  for (std::size_t i = 1; i <= columns; ++i) names += (i > 1 ? ", c" : "c") + std::to_string(i);
  return names;
}

/// IS NULL would take a record of nulls for Null.
std::string NullBits(std::size_t columns) {
  std::string bits;
  for (std::size_t i = 1; i <= columns; ++i) {
    bits.append(i > 1 ? " + " : "").append("CASE WHEN c").append(std::to_string(i));
    bits.append(" IS NOT DISTINCT FROM NULL THEN ").append(std::to_string(std::uint64_t{1} << (i - 1)));
    bits.append("::bigint ELSE 0 END");
  }
  return bits;
}

}  // namespace

const std::string& FieldSeparator() {
  static const std::string separator = MakeSeparator();
  return separator;
}

std::string SeparatorLiteral() { return "E'\\x1f" + FieldSeparator().substr(1) + "'"; }

std::string PackedSource(std::string_view name, std::size_t columns) {
  return std::string(name) + "(" + ColumnNames(columns) + ")";
}

std::string PackedRowText(std::size_t columns) {
  return "concat_ws(" + SeparatorLiteral() + ", " + NullBits(columns) + ", " + ColumnNames(columns) + ")";
}

}  // namespace dralo::database::odbc
