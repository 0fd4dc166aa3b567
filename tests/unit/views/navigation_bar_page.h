#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "state/request_state.h"
#include "support/contains.h"
#include "support/rendering.h"
#include "views/navigation_bar.h"

namespace dralo::tests {

/// A grid on the first of three pages of 45 records, which a test changes before it asks for the bar.
struct Bar : Rendering {
  std::int32_t last_record = 41;
  std::string class_suffix = "";

  Bar() {
    records_on_page = 20;
    settings.RecordCount = 45;
    settings.FromRow = 1;
    settings.ToRow = 20;
  }

  /// The one-record view on record `number`.
  void ShowRecord(std::int32_t number) {
    mode = state::Mode::kFormView;
    records_on_page = 1;
    current_record = settings.FromRow = settings.ToRow = number;
    last_record = settings.RecordCount;
  }

  void ShowRows(std::int32_t from, std::int32_t to) {
    current_record = settings.FromRow = from;
    settings.ToRow = to;
  }

  std::string Html(int column_span = 4) {
    return Text([&](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{views::NavigationBar(render, column_span, class_suffix, last_record)});
    });
  }

  std::string Buttons() {
    return Between(R"(<tr><td width="1%" class="DRLOTableNavBar"nowrap align="left">)");
  }
  std::string Counter() {
    return Between("\r\n<td width=\"1%\" class=\"DRLOTableNavBar\"nowrap align=\"left\"> ");
  }
  std::string RightHand() {
    return Between(R"(<td width="99%" class="DRLOTableNavBar"nowrap align="right"> )");
  }

  std::string Select() {
    return Text([](html::HtmlWriter& out, state::Render& render) {
      out.Write(html::Verbatim{views::RecordsPerPageSelect(render)});
    });
  }

  bool ShowsSelect() { return Rendered(state::ShowsRecordsPerPageSelect); }

 private:
  std::string Between(std::string_view start) {
    const std::string html = Html();
    const std::size_t at = html.find(start);
    if (at == html.npos) return "(no such cell)";
    const std::size_t from = at + start.size();
    return html.substr(from, html.find("</td>\r\n", from) - from);
  }
};

struct BarTest : testing::Test, Bar {};

}  // namespace dralo::tests
