#include "driver/requested_order.h"

#include <cstddef>
#include <optional>
#include <string>

#include "driver/query.h"
#include "settings/field_lists.h"
#include "settings/statement_parameters.h"
#include "text/decimal.h"
#include "views/sortable_column.h"

namespace dralo::driver {
namespace {

namespace key = state::key;

bool IsOfferedColumn(const state::Render& render, int column) {
  const auto recordset = NewRecordset(render.environment);
  recordset->SetMaxRecords(1);
  settings::OpenWithParameters(*recordset, render.settings, render.view.sql, render.settings.SqlParameters);
  const auto fields = recordset->Fields();
  const auto index = static_cast<std::size_t>(column) - 1;
  return index < fields.size() &&
         settings::IsGridFieldShown(render.settings, fields[index]->Name(), column) &&
         views::IsSortable(render, *fields[index], column);
}

bool IsOfferedOrder(const state::Render& render, std::string_view asked) {
  const auto column = text::ParseNumber<int>(asked);
  if (!column || *column < 1 || std::to_string(*column) != asked) return false;
  if (render.settings.has_supplied_recordset || !views::CanSort(render)) return false;
  try {
    return IsOfferedColumn(render, *column);
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace

void TakeRequestedOrder(state::Render& render) {
  if (!render.settings.Hardened) return;
  const std::string_view asked = render.keys.Value(key::kOrderByFields);
  const bool is_descending = render.keys.Has(key::kOrderByDesc);
  state::ViewState& view = render.view;
  if (asked.empty()) {
    if (is_descending && !view.own.order_by.empty()) view.is_descending = true;
  } else if (asked == view.own.order_by) {
    view.is_descending = is_descending;
  } else if (IsOfferedOrder(render, asked)) {
    view.order_by = asked;
    view.is_descending = is_descending;
  }
}

}  // namespace dralo::driver
