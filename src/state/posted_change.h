#pragma once

#include <string>

namespace dralo::state {

/// What a posted change did to the database.
enum class Change { kNone, kSaved, kDeleted };

/// What became of the change that a page's request posted.
struct PostedChange {
  Change change = Change::kNone;
  bool has_failed = false;
  std::string status_message = "";  ///< What the form views show about it.
  std::string errors = "";          ///< What it added to ErrorMessage.
};

}  // namespace dralo::state
