#pragma once

#include <string>
#include <vector>

#include "dralo/recordset.h"
#include "state/render.h"
#include "views/shown_column.h"

namespace dralo::views {

/// A field that the one-record view shows, found out once per page.
struct FormField : ShownColumn {
  /// Of its row, everything before the text of the value: label and opened cell.
  std::string row_start = {};
};

/// The fields that the one-record view shows, in their order.
std::vector<FormField> FormFields(state::Render& render, platform::Recordset& recordset);

}  // namespace dralo::views
