#pragma once

#include <memory>
#include <string>

#include "dralo/recordset.h"
#include "state/render.h"

namespace dralo::driver {

/// Whether the records are counted when they are opened: no, yes, or it was tried and failed.
enum class Counting { kNone, kWanted, kFailed };

/// The recordsets of one page, and how they were found.
struct ShownRecords {
  std::string sql = "";                       ///< The main recordset's statement, for debug row and messages.
  std::shared_ptr<platform::Recordset> main;  ///< What is paged through.
  std::shared_ptr<platform::Recordset> keyed;  ///< The one record that a primary key addresses; or none.
  bool is_addressed_by_key = false;            ///< The posted key, not the record number, says what is shown.
  bool is_added = false;                       ///< The main recordset holds a new record.
  Counting counting = Counting::kNone;

  platform::Recordset& Shown() const { return keyed != nullptr ? *keyed : *main; }
};

/// Opens what the view shows, counts its records if that is still to be done, and moves to the record to
/// show: the one that the posted key addresses, a new record for the add form, else the current record of the
/// view's statement; a form shows that record in the columns of its own statement. `records.sql` is set
/// before a statement runs, so that messages can show it. Throws platform::Error when a statement fails.
void OpenShownRecords(state::Render& render, ShownRecords& records);

/// Whether OpenShownRecords() can count the records as well, at the same moment: those of a statement, on a
/// page that is addressed by number.
bool CanCountBeside(const state::Render& render);

/// Closes what was opened here. A supplied recordset stays open; a new record is discarded.
void CloseShownRecords(const state::Render& render, ShownRecords& records);

}  // namespace dralo::driver
