#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::settings {

/// Slots of LanguageTables::navigation. Next and previous have two forms: one for a record, one for a page.
enum NavigationSlot : std::size_t {
  kNextRecord = 0,
  kNextPage = 1,
  kPreviousRecord = 2,
  kPreviousPage = 3,
  kRecord = 4,
  kRecords = 5,
  kList = 6,
  kOf = 7,
  kFirst = 8,
  kLast = 9,
  kRecordsPerPage = 10,
  kPage = 11,
};

/// Slots of LanguageTables::buttons.
enum ButtonSlot : std::size_t { kEdit = 0, kSave = 1, kClose = 2, kAdd = 3, kDelete = 4 };

/// Slots of LanguageTables::updates.
enum UpdateSlot : std::size_t { kInserted = 0, kUpdated = 1, kDeleted = 2, kNotSaved = 3 };

/// Slots of LanguageTables::refusals: the texts beside a field, or beside the buttons, of a change that was
/// not made. "{}" stands for a limit.
enum RefusalSlot : std::size_t {
  kSeeFields = 0,
  kChangedMeanwhile = 1,  ///< In front of the newer value.
  kDeleteChanged = 2,
  kAddedAlready = 3,
  kRequired = 4,
  kNoNumber = 5,
  kNoDate = 6,
  kBelowLimit = 7,
  kAboveLimit = 8,
  kTooShort = 9,
  kTooLong = 10,
  kOtherForm = 11,
  kNoEmail = 12,
  kNoAddress = 13,
  kTooEarly = 14,
  kTooLate = 15,
  kNotDeleted = 16,
  kNoChoice = 17,
  kConnectionLost = 18,
  kMayBeChanged = 19,  ///< Or not: the connection was lost when it was to be made.
};

/// Every text that the component itself puts on a page.
struct LanguageTables {
  std::vector<std::string> navigation;     ///< At least 12.
  std::vector<std::string> buttons;        ///< At least 5.
  std::vector<std::string> updates;        ///< At least 3; the fourth may be missing.
  std::vector<std::string> refusals = {};  ///< One for each slot; plain text.

  /// The text of a slot in `updates`; empty when a page's own list is too short for it.
  std::string_view Update(UpdateSlot slot) const {
    return slot < updates.size() ? std::string_view(updates[slot]) : std::string_view();
  }
};

/// The texts of "ENG", "GER" or "NOR", in exactly this letter case; nullptr for any other code.
std::shared_ptr<const LanguageTables> BuiltInTables(std::string_view code);

}  // namespace dralo::settings
