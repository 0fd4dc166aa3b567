#include "views/navigation_bar.h"

#include "shell/language.h"
#include "util/letter_case.h"
#include "util/list.h"
#include "views/links.h"

namespace dralo::views {
namespace {

using util::Verbatim;

/// Records are spoken of where one is shown at a time, pages elsewhere.
bool SpeaksOfRecords(const shell::Render& render) {
  return render.form_view || render.settings.RecordsPerPage < 2;
}

Verbatim Text(const shell::Render& render, shell::NavigationSlot slot) {
  return {render.settings.language_tables->navigation[slot]};
}

struct Button {
  std::string_view key;
  std::string_view image;  ///< Without "d", which disabled buttons add, and ".gif".
  shell::NavigationSlot title;
};

void PutButton(util::HtmlWriter& out, const shell::Render& render, const Button& button, bool works) {
  const Verbatim image_dir{render.settings.ImageDir};
  if (!works) {
    out.Put(R"(<img src="{}{}d.gif" border="0">)", image_dir, Verbatim{button.image});
    return;
  }
  out.Put(R"(<input type="image" src="{}{}.gif" name="{}" border="0" title="{} {}" > )", image_dir,
          Verbatim{button.image}, render.keys(button.key), Text(render, button.title),
          Text(render, SpeaksOfRecords(render) ? shell::kRecord : shell::kPage));
}

void PutButtons(util::HtmlWriter& out, const shell::Render& render, std::int32_t last_record) {
  namespace key = shell::key;
  const shell::Settings& settings = render.settings;
  const bool records = SpeaksOfRecords(render);
  const bool goes_back = render.current_record != 1;
  const bool goes_to_last = last_record > render.current_record && !settings.DisableNavBarLastPageBtn;
  const bool has_ends = settings.DisplayNavBarFirstLastBtn;

  if (has_ends) PutButton(out, render, {key::kFirst, "firstpg", shell::kFirst}, goes_back);
  PutButton(out, render, {key::kPrevious, "prevpg", records ? shell::kPreviousRecord : shell::kPreviousPage},
            goes_back);
  PutButton(out, render, {key::kNext, "nextpg", records ? shell::kNextRecord : shell::kNextPage},
            !render.is_last_page);
  if (has_ends) PutButton(out, render, {key::kLast, "lastpg", shell::kLast}, goes_to_last);
}

/// "Records (1..20) of 45", or "Record 1 of 45"; without "of" while the count is unknown.
void PutRecordCounter(util::HtmlWriter& out, const shell::Render& render) {
  const shell::Settings& settings = render.settings;
  const bool is_counted = settings.RecordCount >= 0;
  if (settings.FromRow != settings.ToRow) {
    out.Put("{} ({}..{}) ", Text(render, shell::kRecords), settings.FromRow, settings.ToRow);
    out.PutIf(is_counted, "{} {}", Text(render, shell::kOf), settings.RecordCount);
  } else {
    out.Put("{} {}", Text(render, shell::kRecord), settings.FromRow);
    out.PutIf(is_counted, " {} {}", Text(render, shell::kOf), settings.RecordCount);
  }
}

/// "Page 1 of 3", or "Page 1" while the count is unknown.
void PutPageCounter(util::HtmlWriter& out, const shell::Render& render) {
  const std::int32_t count = render.settings.RecordCount;
  const std::int32_t page_size = render.settings.RecordsPerPage;
  out.Put("{} {}", Text(render, shell::kPage), (render.current_record - 1) / page_size + 1);
  const std::int32_t pages = count / page_size + (count % page_size != 0 ? 1 : 0);
  out.PutIf(count >= 0, " {} {}", Text(render, shell::kOf), pages);
}

void PutCounter(util::HtmlWriter& out, const shell::Render& render) {
  const std::string wanted = util::ToUpper(util::TrimBlanks(render.settings.DisplayNavBarTextOptions));
  const bool records = wanted != "PAGES";
  const bool pages = wanted != "RECORDS" && !render.form_view;
  if (records) PutRecordCounter(out, render);
  out.PutIf(records && pages, "&nbsp;&nbsp;");
  if (pages) PutPageCounter(out, render);
}

/// The attribute in the cells and the link of the bar; without CSS the blank that stands in its place.
std::string ClassPart(const shell::Render& render, std::string_view suffix) {
  if (!render.settings.UseCSS) return " ";
  return std::string(R"( class="DRLOTableNavBar)").append(suffix).append("\"");
}

}  // namespace

std::string NavigationBar(const shell::Render& render, int column_span, std::string_view class_suffix,
                          std::int32_t last_record) {
  const std::string class_part = ClassPart(render, class_suffix);
  const Verbatim css{class_part};
  util::HtmlWriter out;
  out.Put("<tr><th nowrap align=\"left\"{}colspan={}>\r\n", css, column_span);
  out.Put("<table width=\"100%\" cellpadding=0 cellspacing=0>\r\n");
  out.Put(R"(<tr><td width="1%"{}nowrap align="left">)", css);
  PutButtons(out, render, last_record);
  out.Put("</td>\r\n");
  out.Put(R"(<td width="1%"{}nowrap align="left"> )", css);
  PutCounter(out, render);
  out.Put("</td>\r\n");
  out.Put(R"(<td width="99%"{}nowrap align="right"> )", css);
  if (render.form_view) {
    out.Put(R"(<a{} href=")", css);
    PutListLink(out, render);
    out.Put(R"(">{}</a>)", Text(render, shell::kList));
  }
  out.PutIf(render.settings.DisplayExcelIcon,
            R"(&nbsp;<input title="Excel export" type="image" name="{}" border=0 src="{}excel.gif">)",
            render.keys(shell::key::kToExcel), Verbatim{render.settings.ImageDir});
  out.Put("</td>\r\n</tr></table></th></tr>\r\n");
  return out.Take();
}

bool ShowsRecordsPerPageSelect(const shell::Render& render) {
  const shell::Settings& settings = render.settings;
  if (!settings.DisplayRecordsPerPageSelect || (render.form_view && render.records_on_page < 2)) return false;
  const std::string_view placement = util::TrimBlanks(settings.RecordsPerPageSelectPlacement);
  return util::EqualIgnoringCase(placement, "top") || util::EqualIgnoringCase(placement, "bottom");
}

std::string RecordsPerPageSelect(const shell::Render& render) {
  shell::Settings& settings = render.settings;
  if (util::TrimBlanks(settings.RecordsPerPageOptions).empty()) {
    settings.RecordsPerPageOptions = shell::Settings().RecordsPerPageOptions;
  }
  util::HtmlWriter out;
  out.Put("{}&nbsp;:&nbsp;", Text(render, shell::kRecordsPerPage));
  out.Put("<select onchange=\"FormDraloGrid{}.submit()\"{} name=\"{}\">\r\n", Verbatim{settings.Tag},
          Verbatim{settings.UseCSS ? R"( class="DRLOTableRecPerPage")" : ""},
          render.keys(shell::key::kMaxRecords));
  const std::string page_size = std::to_string(settings.RecordsPerPage);
  for (const std::string& option : util::Split(settings.RecordsPerPageOptions)) {
    out.Put(R"(<option{} value="{}">{})", Verbatim{util::TrimBlanks(option) == page_size ? " selected" : ""},
            Verbatim{option}, Verbatim{option});
  }
  out.Put("</select>");
  return out.Take();
}

}  // namespace dralo::views
