#include "views/navigation_bar.h"

#include "settings/language.h"
#include "state/links.h"
#include "text/blanks.h"
#include "text/list.h"
#include "views/button_bar.h"

namespace dralo::views {
namespace {

using html::Verbatim;

/// The bar says "record" where one is shown at a time, else "page".
bool SpeaksOfRecords(const state::Render& render) {
  return state::IsForm(render.view.mode) || render.view.page_size < 2;
}

Verbatim Text(const state::Render& render, settings::NavigationSlot slot) {
  return {render.settings.language_tables->navigation[slot]};
}

struct Button {
  std::string_view key;
  std::string_view image;  ///< Without ".gif", and without the "d" in front of it that disabled buttons have.
  settings::NavigationSlot title;
};

void PutButton(html::HtmlWriter& out, const state::Render& render, const Button& button, bool works) {
  const Verbatim image_dir{render.settings.ImageDir};
  if (!works) {
    out.Put(R"(<img src="{}{}d.gif" border="0">)", image_dir, Verbatim{button.image});
    return;
  }
  out.Put(R"(<input type="image" src="{}{}.gif" name="{}" border="0" title="{} {}"{} > )", image_dir,
          Verbatim{button.image}, render.keys(button.key), Text(render, button.title),
          Text(render, SpeaksOfRecords(render) ? settings::kRecord : settings::kPage), WithoutRules(render));
}

void PutButtons(html::HtmlWriter& out, const state::Render& render, std::int32_t last_record) {
  namespace key = state::key;
  const settings::Settings& settings = render.settings;
  const bool records = SpeaksOfRecords(render);
  const bool goes_back = render.view.current_record != 1;
  const bool goes_to_last = last_record > render.view.current_record && !settings.DisableNavBarLastPageBtn;
  const bool has_ends = settings.DisplayNavBarFirstLastBtn;

  if (has_ends) PutButton(out, render, {key::kFirst, "firstpg", settings::kFirst}, goes_back);
  PutButton(out, render,
            {key::kPrevious, "prevpg", records ? settings::kPreviousRecord : settings::kPreviousPage},
            goes_back);
  PutButton(out, render, {key::kNext, "nextpg", records ? settings::kNextRecord : settings::kNextPage},
            !render.outcome.is_last_page);
  if (has_ends) PutButton(out, render, {key::kLast, "lastpg", settings::kLast}, goes_to_last);
}

/// "Records (1..20) of 45", or "Record 1 of 45"; without "of" while the count is unknown.
void PutRecordCounter(html::HtmlWriter& out, const state::Render& render) {
  const bool is_counted = render.outcome.record_count >= 0;
  if (render.outcome.from_row != render.outcome.to_row) {
    out.Put("{} ({}..{}) ", Text(render, settings::kRecords), render.outcome.from_row, render.outcome.to_row);
    out.PutIf(is_counted, "{} {}", Text(render, settings::kOf), render.outcome.record_count);
  } else {
    out.Put("{} {}", Text(render, settings::kRecord), render.outcome.from_row);
    out.PutIf(is_counted, " {} {}", Text(render, settings::kOf), render.outcome.record_count);
  }
}

/// "Page 1 of 3", or "Page 1" while the count is unknown.
void PutPageCounter(html::HtmlWriter& out, const state::Render& render) {
  const std::int32_t count = render.outcome.record_count;
  const std::int32_t page_size = render.view.page_size;
  out.Put("{} {}", Text(render, settings::kPage), (render.view.current_record - 1) / page_size + 1);
  const std::int32_t pages = count / page_size + (count % page_size != 0 ? 1 : 0);
  out.PutIf(count >= 0, " {} {}", Text(render, settings::kOf), pages);
}

void PutCounter(html::HtmlWriter& out, const state::Render& render) {
  const bool records = render.settings.counters.records;
  const bool pages = render.settings.counters.pages && !state::IsForm(render.view.mode);
  if (records) PutRecordCounter(out, render);
  out.PutIf(records && pages, "&nbsp;&nbsp;");
  if (pages) PutPageCounter(out, render);
}

/// The class attribute of cells and links in the bar; without UseCSS a blank in its place.
std::string ClassPart(const state::Render& render, std::string_view suffix) {
  if (!render.settings.UseCSS) return " ";
  return std::string(R"( class="DRLOTableNavBar)").append(suffix).append("\"");
}

}  // namespace

std::string NavigationBar(const state::Render& render, int column_span, std::string_view class_suffix,
                          std::int32_t last_record) {
  const std::string class_part = ClassPart(render, class_suffix);
  const Verbatim css{class_part};
  html::HtmlWriter out;
  out.Put("<tr><th nowrap align=\"left\"{}colspan={}>\r\n", css, column_span);
  out.Put("<table width=\"100%\" cellpadding=0 cellspacing=0>\r\n");
  out.Put(R"(<tr><td width="1%"{}nowrap align="left">)", css);
  PutButtons(out, render, last_record);
  out.Put("</td>\r\n");
  out.Put(R"(<td width="1%"{}nowrap align="left"> )", css);
  PutCounter(out, render);
  out.Put("</td>\r\n");
  out.Put(R"(<td width="99%"{}nowrap align="right"> )", css);
  if (state::IsForm(render.view.mode)) {
    out.Put(R"(<a{} href=")", css);
    state::PutListLink(out, render);
    out.Put(R"(">{}</a>)", Text(render, settings::kList));
  }
  out.PutIf(render.settings.DisplayExcelIcon,
            R"(&nbsp;<input title="Excel export" type="image" name="{}" border=0 src="{}excel.gif"{}>)",
            render.keys(state::key::kToExcel), Verbatim{render.settings.ImageDir}, WithoutRules(render));
  out.Put("</td>\r\n</tr></table></th></tr>\r\n");
  return out.Take();
}

std::string RecordsPerPageSelect(state::Render& render) {
  const settings::Settings& settings = render.settings;
  render.outcome.has_taken_default_page_sizes = text::IsBlank(settings.RecordsPerPageOptions);
  const std::string options = render.outcome.has_taken_default_page_sizes
                                  ? settings::Settings().RecordsPerPageOptions
                                  : settings.RecordsPerPageOptions;
  html::HtmlWriter out;
  out.Put("{}&nbsp;:&nbsp;", Text(render, settings::kRecordsPerPage));
  out.PutIf(!settings.Hardened, "<select onchange=\"FormDraloGrid{}.submit()\"", Verbatim{settings.Tag})
      .PutIf(settings.Hardened, "<select data-submit")
      .Put("{} name=\"{}\">\r\n", Verbatim{settings.UseCSS ? R"( class="DRLOTableRecPerPage")" : ""},
           render.keys(state::key::kMaxRecords));
  const std::string page_size = std::to_string(render.view.page_size);
  for (const std::string& option : text::Split(options)) {
    out.Put(R"(<option{} value="{}">{})", Verbatim{text::TrimBlanks(option) == page_size ? " selected" : ""},
            Verbatim{option}, Verbatim{option});
  }
  out.Put("</select>");
  if (settings.Hardened) {
    out.Put("<noscript>&nbsp;<input")
        .PutIf(settings.UseCSS, R"( class="DraloInputBtn")")
        .Put(R"( type="submit" value="OK"></noscript>)");
  }
  return out.Take();
}

}  // namespace dralo::views
