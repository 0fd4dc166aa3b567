#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "state/links.h"
#include "state/render.h"
#include "support/fake_page.h"
#include "support/regional_environment.h"
#include "views/data_grid.h"

namespace dralo::tests {

/// The lines of a raw string that begins with a line break, without their indentation, each ended by a
/// carriage return and a line feed.
inline std::string Lines(std::string_view text) {
  std::string lines;
  text.remove_prefix(text.starts_with('\n') ? 1 : 0);
  while (text.find('\n') != text.npos) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(line.size() + 1);
    lines.append(line.substr(std::min(line.find_first_not_of(' '), line.size()))).append("\r\n");
  }
  return lines;
}

/// Renderings of one view on one page: set what it needs, then render parts of it.
struct Rendering {
  settings::Settings settings;
  FakePage page;
  std::int32_t current_record = 1;
  bool form_view = false;

  std::int32_t rows = 0;                                 ///< Rows of the last grid.
  std::vector<platform::Variant> current_record_values;  ///< Of the last grid.

  /// What body(out, render) writes.
  template <class Body>
  std::string Text(Body&& body) {
    html::HtmlWriter out;
    const state::RequestKeys keys(page.GetRequest(), settings.Tag);
    state::Render render{.settings = settings,
                         .environment = AmericanEnvironment(),
                         .keys = keys,
                         .out = out,
                         .script_name = page.script_name,
                         .current_record_values = current_record_values,
                         .form_view = form_view,
                         .current_record = current_record};
    render.state_query_tail = state::StateQueryTail(render);
    body(out, render);
    return out.Take();
  }

  std::string Grid(platform::Recordset& records) {
    rows = 0;
    return Text(
        [&](html::HtmlWriter&, state::Render& render) { views::MakeDataGrid(render, records, rows); });
  }
};

}  // namespace dralo::tests
