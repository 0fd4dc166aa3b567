#pragma once

#include "database/session.h"
#include "dralo/error.h"

namespace dralo::database {

/// Calls `change`, which must be one transaction, and report nothing before it is committed. If it fails only
/// because of a conflict with another transaction, it is called once more.
template <class Change>
void RepeatingAfterConflict(const Session& session, const Change& change) {
  try {
    return change();
  } catch (const platform::Error& error) {
    if (!session.MayRepeatAfter(error)) throw;
  }
  change();
}

}  // namespace dralo::database
