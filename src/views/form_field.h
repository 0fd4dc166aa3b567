#pragma once

#include <string>
#include <vector>

#include "dralo/recordset.h"
#include "state/render.h"
#include "views/shown_column.h"

namespace dralo::views {

/// A field that the one-record view shows, and what is the same for all records of a page.
struct FormField : ShownColumn {
  /// Its row up to the text of the value: the label and the opened cell.
  std::string row_start = {};
};

/// The fields that the one-record view shows, in their order.
std::vector<FormField> FormFields(state::Render& render, platform::Recordset& recordset);

}  // namespace dralo::views
