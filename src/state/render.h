#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "html/html_writer.h"
#include "platform/environment.h"
#include "platform/recordset.h"
#include "platform/variant.h"
#include "settings/posted_change.h"
#include "settings/settings.h"
#include "state/request_keys.h"

namespace dralo::cells {
class FormatFunction;
}

namespace dralo::state {

/// Everything that one rendering of a view needs and learns. The driver makes it, fills it step by step and
/// hands it down; it ends with the call.
struct Render {
  settings::Settings& settings;
  platform::Environment& environment;
  const RequestKeys& keys;
  html::HtmlWriter& out;
  std::string_view script_name;                           ///< The page's own address, for links and the form.
  std::vector<platform::Variant>& current_record_values;  ///< What CurrentRecord reads.

  std::string form_display = "";  ///< The view that the request asks for, as posted; written back.
  settings::Change change =
      settings::Change::kNone;  ///< What this rendering changed before it showed anything.
  bool form_view = false;       ///< The one-record view, or an edit or add form, is shown.

  std::int32_t current_record = 1;  ///< 1-based number of the record that the page starts with.
  std::int32_t bookmark = 1;
  std::int32_t records_on_page = 1;  ///< How many records the shown view puts on a page.
  bool is_last_page = false;         ///< There is no record behind this page.

  /// What the query string of every link carries behind the record number.
  std::string state_query_tail = "";

  /// For texts of values while they are written; see platform::Formatting::Text().
  std::string scratch = "";

  /// The format functions that cells of this rendering needed so far, by column number; see
  /// cells::GetFormatCellString().
  std::vector<std::shared_ptr<cells::FormatFunction>> format_functions = {};

  const platform::ValueFormatting& Regional() const { return environment.Regional(); }
};

}  // namespace dralo::state
