#pragma once

#include <span>
#include <string>
#include <string_view>

namespace dralo::record {

/// What a form may send for a field.
enum class FieldKind { kKey, kText, kCode, kWhole, kFraction, kDate, kTime, kFlag, kMemo };

struct ShopField {
  std::string_view name;
  FieldKind kind;
};

/// A table as page scripts use it.
struct ShopTable {
  std::string_view name;                        ///< Quoted where it must be.
  std::string_view select;                      ///< All columns.
  std::string_view shorter_select;              ///< Some of them, with the key.
  std::string_view keys;                        ///< For EditPrimaryKeys.
  std::string_view new_key;                     ///< For EditNewPKStatement.
  std::span<const std::string_view> key_texts;  ///< Of records that are there.
  std::span<const ShopField> fields;
};

std::span<const ShopTable> Tables();

/// The statements that make the tables and their rows.
std::string ShopTables();

}  // namespace dralo::record
