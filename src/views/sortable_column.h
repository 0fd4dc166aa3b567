#pragma once

#include "dralo/field.h"
#include "state/render.h"

namespace dralo::views {

/// Whether visitors may sort by columns at all: not when the rows come from a command, or the statement has
/// an order of its own.
bool CanSort(const state::Render& render);

/// Whether they may sort by the field, which is the `column`-th of the statement, counted from 1. Columns of
/// long values cannot be sorted by, except with one database engine.
bool IsSortable(const state::Render& render, const platform::Field& field, int column);

}  // namespace dralo::views
