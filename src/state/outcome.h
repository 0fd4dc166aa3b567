#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "dralo/variant.h"

namespace dralo::state {

/// What a posted change did to the database.
enum class Change { kNone, kSaved, kDeleted };

/// What is shown beside a field of a form that comes back because its change was not made.
struct FieldNote {
  std::string field;                                      ///< Its name; "" for the whole record.
  std::string message;                                    ///< Plain text, as `newer_value` is.
  std::optional<std::string> newer_value = std::nullopt;  ///< What somebody else has stored meanwhile.
  std::string digest = "";  ///< What the form carries about the field from now on; "" for the posted digest.
};

/// What became of the change that a request posted.
struct PostedChange {
  Change change = Change::kNone;
  std::optional<std::string> saved_key = std::nullopt;
  bool has_failed = false;
  bool shows_stored_record = false;
  bool is_refused = false;
  bool has_lost_change = false;
  std::vector<FieldNote> field_notes = {};
  std::string status_message = "";  ///< What the form views show about it.
  std::string errors = "";          ///< What it added to ErrorMessage.
  std::string error_detail = "";    ///< What it added to ErrorDetail.
};

/// What a rendering finds, does and reports.
struct Outcome {
  std::int32_t record_count = -1;  ///< -1 while it is unknown.
  std::int32_t from_row = 0;       ///< 0 while nothing is shown.
  std::int32_t to_row = 0;
  bool is_last_page = false;  ///< No record follows this page.

  std::string errors = "";        ///< What is added to ErrorMessage.
  std::string error_detail = "";  ///< What is added to ErrorDetail.

  Change change = Change::kNone;                        ///< What was changed before anything was shown.
  std::optional<std::string> saved_key = std::nullopt;  ///< Of a hardened view, as key::kPrimaryKey has it.
  bool has_failed_to_save = false;                      ///< A posted change was tried and failed.
  bool shows_stored_record =
      false;                     ///< What was typed then does not come back: the form shows what is stored.
  bool is_refused = false;       ///< It was not tried, for who has posted it or for its form.
  bool has_lost_change = false;  ///< The connection was lost, and the change perhaps made all the same.
  bool has_no_such_record =
      false;  ///< The key of the request addresses none: a hardened view shows no other.
  std::vector<FieldNote> field_notes = {};
  std::string status_message = "";  ///< The outcome of the last save or delete, for the form views.
  std::shared_ptr<const PostedChange> reported_change = nullptr;  ///< Its errors were added already.

  std::vector<platform::Variant> record = {};  ///< The values of the record shown; of a grid its first.

  bool has_taken_default_page_sizes = false;  ///< The page offers no sizes of its own.

  /// Whether forms show what was posted.
  bool ShowsPosted() const { return has_failed_to_save && !shows_stored_record; }
};

}  // namespace dralo::state
