#include "state/render.h"

namespace dralo::state {

void Commit(const Render& render, settings::Settings& settings) {
  const ViewState& view = render.view;
  settings.RecordsPerPage = view.page_size;
  settings.CountRecords = view.is_counted;
  settings.sql = view.sql;
  settings.OrderByFields = view.order_by;
  settings.OrderByDesc = view.is_descending;

  const Outcome& outcome = render.outcome;
  settings.RecordCount = outcome.record_count;
  settings.FromRow = outcome.from_row;
  settings.ToRow = outcome.to_row;
  settings.ErrorMessage += outcome.errors;
  settings.ErrorDetail += outcome.error_detail;
  if (outcome.has_taken_default_page_sizes) {
    settings.RecordsPerPageOptions = settings::Settings().RecordsPerPageOptions;
  }
}

}  // namespace dralo::state
