#pragma once

#include <string>

#include <dralo/dralo.h>

#include "schema.h"
#include "table_plan.h"

namespace serve {

/// The outcome of writing a view.
struct Outcome {
  std::string message;    ///< What went wrong, as markup; empty when nothing did.
  bool is_empty = false;  ///< A grid without records.
};

/// Writes the view of a table. Throws dralo::Error when the database cannot be reached, and Page::Ended.
Outcome WriteTable(dralo::Environment& environment, const std::string& connection_string,
                   const TablePlan& plan, bool can_edit, dralo::Page& page);

/// What stands above the view, as markup.
std::string AboutTable(const TablePlan& plan, bool can_edit, const Outcome& outcome);

}  // namespace serve
