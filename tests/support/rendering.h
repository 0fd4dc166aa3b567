#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

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

/// Renderings of one view on one page: set what it needs, then render parts of it. What a rendering finds is
/// committed to the settings, as by a view.
struct Rendering {
  settings::Settings settings;
  FakePage page;
  platform::Environment* environment = &AmericanEnvironment();
  state::Mode mode = state::Mode::kGrid;
  std::int32_t current_record = 1;
  std::int32_t records_on_page = 1;
  state::Outcome outcome = {};  ///< What a rendering starts from, then what it has found.
  std::int32_t rows = 0;        ///< Of the last grid or form.

  /// What body(render) returns; what it writes goes to `out`.
  template <class Body>
  auto Rendered(html::HtmlWriter& out, Body&& body) {
    const auto change_keys = settings.Hardened ? state::ChangeKeys::kForm : state::ChangeKeys::kAnywhere;
    const state::RequestKeys keys(page.GetRequest(), settings.Tag, change_keys);
    state::Render render{.settings = settings,
                         .environment = *environment,
                         .keys = keys,
                         .out = out,
                         .script_name = page.script_name,
                         .outcome = StartingOutcome()};
    render.view.mode = mode;
    render.view.current_record = current_record;
    render.view.records_on_page = records_on_page;
    render.state_query_tail = state::StateQueryTail(render);
    const Committed committed{*this, render};
    return body(render);
  }

  template <class Body>
  auto Rendered(Body&& body) {
    html::HtmlWriter out;
    return Rendered(out, body);
  }

  /// What body(out, render) writes.
  template <class Body>
  std::string Text(Body&& body) {
    html::HtmlWriter out;
    Rendered(out, [&](state::Render& render) { body(out, render); });
    return out.Take();
  }

  std::string Grid(platform::Recordset& records) {
    rows = 0;
    return Text(
        [&](html::HtmlWriter&, state::Render& render) { views::MakeDataGrid(render, records, rows); });
  }

 private:
  struct Committed {
    Rendering& rendering;
    state::Render& render;
    ~Committed() {
      state::Commit(render, rendering.settings);
      rendering.outcome = render.outcome;
    }
  };

  state::Outcome StartingOutcome() const {
    state::Outcome start = outcome;
    start.errors.clear();
    start.record_count = settings.RecordCount;
    start.from_row = settings.FromRow;
    start.to_row = settings.ToRow;
    return start;
  }
};

}  // namespace dralo::tests
