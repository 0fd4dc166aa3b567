#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "settings/settings.h"

namespace dralo::state {

/// The views that can stand on a page.
enum class Mode { kGrid, kFormView, kFormEdit, kFormAdd };

/// "grid", "formview", "formedit" or "formadd".
std::string_view ModeName(Mode mode);

/// Whether single records are shown, to be read, edited or added.
constexpr bool IsForm(Mode mode) { return mode != Mode::kGrid; }

/// What the page itself has set, kept as it was before the request was read.
struct PageState {
  std::int16_t page_size;
  bool is_counted;
  std::string sql;
  std::string order_by;
  bool is_descending;
};

/// What is to be shown: what the request asks for, and for the rest what the page has set. It travels in the
/// page, as hidden inputs and in the query of links.
struct ViewState {
  explicit ViewState(const settings::Settings& settings)
      : page_size(settings.RecordsPerPage),
        is_counted(settings.CountRecords),
        sql(settings.sql),
        order_by(settings.OrderByFields),
        is_descending(settings.OrderByDesc),
        own{page_size, is_counted, sql, order_by, is_descending} {}

  std::int16_t page_size;
  bool is_counted;
  std::string sql;
  std::string order_by;
  bool is_descending;

  PageState own;

  std::string form_display = "";  ///< The view that the request asks for, as posted; written back.
  Mode mode = Mode::kGrid;
  std::int32_t current_record = 1;  ///< 1-based number of the record that the page starts with.
  std::int32_t bookmark = 1;
  std::int32_t records_on_page = 1;  ///< How many records the shown view puts on a page.
};

}  // namespace dralo::state
