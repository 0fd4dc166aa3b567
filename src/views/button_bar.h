#pragma once

#include <string_view>

#include "state/render.h"

namespace dralo::views {

/// Whether the one-record view has the row of buttons: when records can be updated; on a hardened page when
/// anything can be done with them.
bool HasButtonBar(const state::Render& render);

/// Opens the row of buttons above a record, in the one-record view and in the edit form.
void PutButtonBarStart(const state::Render& render);

/// The attribute of buttons that do not save: without it browsers would keep a visitor in a form that breaks
/// a rule of EditRules.
html::Verbatim WithoutRules(const state::Render& render);

/// Writes the button that asks for the add form, when EditOptions allows adding.
void PutAddButton(const state::Render& render);

/// Writes `message`, the outcome of the last save or delete, which may be empty, and closes the row.
void PutButtonBarEnd(const state::Render& render, std::string_view message);

/// Writes the row for a form view that has no record to show: adding is possible, and the outcome of the last
/// save or delete is told. Writes nothing without HasButtonBar().
void PutButtonBarWithoutRecord(const state::Render& render);

}  // namespace dralo::views
