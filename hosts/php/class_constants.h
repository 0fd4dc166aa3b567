#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "dralo/command.h"
#include "dralo/recordset.h"

namespace dralo::php {

/// A name that scripts may write instead of a number that a database object takes.
struct ClassConstant {
  std::string_view php_class;  ///< In the namespace Dralo.
  std::string_view name;
  std::int64_t value;
  std::string_view doc;
};

template <class Enumeration>
constexpr std::int64_t NumberOf(Enumeration value) {
  return static_cast<std::int64_t>(value);
}

inline constexpr auto kClassConstants = std::to_array<ClassConstant>({
    {"Recordset", "CURSOR_FORWARD_ONLY", NumberOf(platform::CursorType::kForwardOnly), "For Open()."},
    {"Recordset", "CURSOR_KEYSET", NumberOf(platform::CursorType::kKeyset),
     "For Open(); the one for adding and changing rows."},
    {"Recordset", "CURSOR_DYNAMIC", NumberOf(platform::CursorType::kDynamic), "For Open()."},
    {"Recordset", "CURSOR_STATIC", NumberOf(platform::CursorType::kStatic), "For Open()."},
    {"Recordset", "LOCK_READ_ONLY", NumberOf(platform::LockType::kReadOnly), "For Open()."},
    {"Recordset", "LOCK_PESSIMISTIC", NumberOf(platform::LockType::kPessimistic), "For Open()."},
    {"Recordset", "LOCK_OPTIMISTIC", NumberOf(platform::LockType::kOptimistic),
     "For Open(); the one for adding and changing rows."},
    {"Recordset", "LOCK_BATCH_OPTIMISTIC", NumberOf(platform::LockType::kBatchOptimistic), "For Open()."},
    {"Recordset", "LOCATION_SERVER", NumberOf(platform::CursorLocation::kServer), "For CursorLocation."},
    {"Recordset", "LOCATION_CLIENT", NumberOf(platform::CursorLocation::kClient),
     "For CursorLocation; the one for adding and changing rows."},
    {"Command", "TYPE_TEXT", NumberOf(platform::CommandType::kText), "For CommandType: a statement."},
    {"Command", "TYPE_TABLE", NumberOf(platform::CommandType::kTable),
     "For CommandType: the name of a table."},
    {"Command", "TYPE_STORED_PROCEDURE", NumberOf(platform::CommandType::kStoredProcedure),
     "For CommandType: the name of a stored procedure."},
    {"Command", "TYPE_UNKNOWN", NumberOf(platform::CommandType::kUnknown),
     "For CommandType: what the text looks like."},
});

}  // namespace dralo::php
