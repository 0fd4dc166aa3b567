#pragma once

#include "database/session.h"
#include "dralo/error.h"

namespace dralo::database {

/// Calls `change`, which is a transaction and tells nobody of anything before it is committed. Where it has
/// failed only because another transaction came first, it is called once more.
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
