#pragma once

#include <string_view>

#include "unit/editing/saving.h"

namespace dralo::tests {

/// What somebody is told who was too slow.
inline constexpr std::string_view kConflict =
    "Update failed: Row cannot be located for updating. Some values may have been changed since it was last "
    "read.<br>";

/// Anna's form with another name, number and notes.
inline Saving& PostChanges(Saving& saving) {
  return saving.Post({{"ID", "1"},
                      {"Name", "Eve"},
                      {"City", "Oslo"},
                      {"Stock", "99"},
                      {"Price", "2.5"},
                      {"Since", "5/3/2024"},
                      {"Active", "on"},
                      {"Notes", "changed"}});
}

inline Saving& PostNewRecord(Saving& saving) {
  return saving.Post({{"ID", "9"}, {"Name", "Eve"}, {"Stock", "99"}});
}

/// Whether a fresh connection can write: nothing is left locked, and nothing half-done.
inline bool IsFree(const TemporaryDatabase& database) {
  database.Run("BEGIN EXCLUSIVE; COMMIT");
  return database.Value("PRAGMA integrity_check") == "ok";
}

}  // namespace dralo::tests
