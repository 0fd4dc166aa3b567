#pragma once

#include <string_view>

#include "state/render.h"

namespace dralo::views {

/// Whether the one-record view has the row of buttons: when records open in a form; on a hardened page also
/// when they can be added.
bool HasButtonBar(const state::Render& render);

/// Opens the row of buttons above a record, in the one-record view and in the edit form.
void PutButtonBarStart(const state::Render& render);

/// The attribute of buttons that do not save: without it a browser would not let a visitor out of a form
/// whose texts break a rule of EditRules.
html::Verbatim WithoutRules(const state::Render& render);

/// Writes the button that leads to the add form, when EditOptions allows adding.
void PutAddButton(const state::Render& render);

/// Writes `message`, the outcome of the last save or delete or an empty text, and closes the row.
void PutButtonBarEnd(const state::Render& render, std::string_view message);

/// Writes the row for a form view that has no record to show: with the button to add one and the outcome of
/// the last save or delete. Writes nothing without HasButtonBar().
void PutButtonBarWithoutRecord(const state::Render& render);

}  // namespace dralo::views
