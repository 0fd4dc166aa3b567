#include "driver/page_frame.h"

#include <algorithm>
#include <string>

#include "state/links.h"
#include "state/request_state.h"
#include "state/value_text.h"
#include "views/navigation_bar.h"

namespace dralo::driver {
namespace {

using html::Verbatim;

/// The number that the page's first record must be below for the last-page button to work.
std::int32_t LastRecordNumber(const state::Render& render) {
  const std::int32_t count = render.outcome.record_count;
  if (count < 0) return -1;
  const std::int32_t reachable = std::clamp(render.settings.RecordsMaxLimit, 0, count);
  return state::IsForm(render.view.mode) ? reachable
                                         : state::FirstOfLastPage(reachable, render.view.page_size);
}

/// The attributes that the page has set on the grid's table; empty when it has set none.
std::string GridTableAttributes(const settings::Settings& settings) {
  static const std::string default_tag = settings::Settings().TableTag;
  std::string attributes;
  if (settings.TableTag != default_tag) attributes += settings.TableTag;
  if (!attributes.empty() && !settings.GridTableTag.empty()) attributes += ' ';
  return attributes += settings.GridTableTag;
}

/// A link takes the place of the button with a script on hardened pages.
void PutAddLinkAndRowEnd(const state::Render& render, Verbatim caption) {
  render.out.Put("<a").PutIf(render.settings.UseCSS, R"( class="DraloInputBtn")").Put(R"( href=")");
  state::PutAddLink(render.out, render);
  render.out.Put("\">{}</a></table></td></tr>\r\n", caption);
}

}  // namespace

void PutOpening(const state::Render& render, std::string_view final_sql) {
  const settings::Settings& settings = render.settings;
  render.out.Put("\r\n\r\n<!-- Dralo -->\r\n\r\n")
      .Put(R"(<table border="0" cellspacing="0" cellpadding="0")")
      .PutIf(!state::IsForm(render.view.mode) && !settings.Width.empty(), R"( width="{}" )",
             Verbatim{settings.Width})
      .Put(">\r\n");
  if (settings.DisplayDebug && !settings.Hardened) {
    render.out.Put(R"(<tr><td style="padding:4px;background-color:white;color:black;border:solid 1px black")")
        .PutIf(settings.UseCSS, R"( class="DRLOTableHeader")")
        .Put(">{}</td></tr><tr><td>&nbsp;</td></tr>\r\n", Verbatim{final_sql});
  }
  const Verbatim tag{settings.Tag};
  render.out.Put(R"(<form name="FormDraloGrid{}" id="FormDraloGrid{}" action=")", tag, tag);
  state::PutInText(render.out, render, render.script_name);
  render.out.Put("\" method=\"post\">\r\n");
}

void PutHeaderRow(state::Render& render, bool bar, int column_span) {
  render.out.PutIf(render.settings.UseCSS, R"(<tr><td width="100%" class="DRLOTableHeader">)")
      .PutIf(!render.settings.UseCSS, R"(<tr><td width="100%">)");
  if (state::ShowsRecordsPerPageSelect(render) && render.settings.page_size_select.top) {
    render.out.Write(Verbatim{views::RecordsPerPageSelect(render)});
  }
  if (bar) PutNavigationBar(render, column_span);
  render.out.Put("</td></tr>\r\n");
}

void PutAddButtonRow(const state::Render& render) {
  const settings::Settings& settings = render.settings;
  if (!settings.edit.add) return;
  const Verbatim caption{settings.language_tables->buttons[settings::kAdd]};
  render.out.Put(R"(<tr><td width="100%"><table width="100%" cellspacing=0 cellpadding=0>)")
      .PutIf(settings.UseCSS, R"(<tr><td colspan=2 class="DraloEditBtnBar">)")
      .PutIf(!settings.UseCSS, "<tr><td colspan=2>");
  if (settings.Hardened) return PutAddLinkAndRowEnd(render, caption);
  render.out
      .PutIf(settings.UseCSS,
             R"(<input class="DraloInputBtn" Value="{}" type="button" onclick="window.location=')", caption)
      .PutIf(!settings.UseCSS, R"(<input Value="{}" type="button" onclick="window.location=')", caption);
  state::PutAddLink(render.out, render);
  render.out.Put("'\"></table></td></tr>\r\n");
}

void PutGridTableOpening(const state::Render& render, int displayed_columns) {
  const std::string attributes = GridTableAttributes(render.settings);
  render.out.Put("<tr><td valign=top align=left>\r\n")
      .Put(R"(<table width="100%")")
      .PutIf(render.settings.UseCSS, R"( class="DRLOTable")")
      .Put(R"( cols="{}")", displayed_columns)
      .PutIf(!attributes.empty(), " {}", Verbatim{attributes})
      .Put(">\r\n");
}

void PutFormTableOpening(const state::Render& render) {
  render.out.Put("<tr><td valign=top align=left>\r\n")
      .Put(R"(<table width="100%" border="0" cellpadding="0" cellspacing="0")")
      .PutIf(render.settings.UseCSS, R"( class="DRLOTableFormOuter" )")
      .Put(">\r\n");
}

void PutTableClosing(const state::Render& render) { render.out.Put("</table></td></tr>\r\n"); }

void PutNavigationBar(const state::Render& render, int column_span) {
  render.out.Write(Verbatim{views::NavigationBar(render, column_span, "", LastRecordNumber(render))});
}

void PutClosing(state::Render& render) {
  const settings::Settings& settings = render.settings;
  if (state::ShowsRecordsPerPageSelect(render) && settings.page_size_select.bottom) {
    render.out.Put("<tr><td")
        .PutIf(settings.UseCSS, R"( class="DRLOTableFooter")")
        .Put(">\r\n{}</td></tr>\r\n", Verbatim{views::RecordsPerPageSelect(render)});
  }
  if (!settings.FooterText.empty()) {
    render.out.Put("<tr><td")
        .PutIf(settings.UseCSS, R"( class="DRLOTableInfoFooter")")
        .Put(">{}</td></tr>\r\n", Verbatim{settings.FooterText});
  }
  render.out.Put("</form>\r\n</table>\r\n");
}

}  // namespace dralo::driver
