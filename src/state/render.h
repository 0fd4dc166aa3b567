#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "html/html_writer.h"
#include "platform/environment.h"
#include "settings/error_report.h"
#include "settings/settings.h"
#include "state/outcome.h"
#include "state/request_keys.h"
#include "state/view_state.h"

namespace dralo::state {

/// One rendering of a view: what it starts from, and what comes of it. Lives as long as the call that
/// renders.
struct Render {
  const settings::Settings& settings;
  platform::Environment& environment;
  const RequestKeys& keys;
  html::HtmlWriter& out;
  std::string script_name;  ///< The page's own address, for links and the form.

  ViewState view = ViewState(settings);
  Outcome outcome = {};

  /// How many links, at most, carry what travels in the page.
  std::size_t links = 1;

  /// What the query string of every link carries after the record number.
  std::string state_query_tail = "";

  const platform::ValueFormatting& regional = environment.Regional();

  /// For texts of values while they are written; see platform::Formatting::Text().
  std::string scratch = "";

  /// For such texts while they are escaped; see html::Escaped().
  std::string escaped = "";

  const platform::ValueFormatting& Regional() const { return regional; }
  settings::ErrorReport Errors() {
    if (settings.Hardened) return {outcome.errors, outcome.error_detail};
    return settings::ErrorReport(outcome.errors);
  }
};

/// Copies what a rendering has found into the properties of its view, from which the next rendering starts.
void Commit(const Render& render, settings::Settings& settings);

}  // namespace dralo::state
