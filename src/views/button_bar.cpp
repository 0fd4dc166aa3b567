#include "views/button_bar.h"

#include "util/letter_case.h"

namespace dralo::views {

using util::Verbatim;

void PutButtonBarStart(const shell::Render& render) {
  render.out.Put("<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n<tr><td colspan=2")
      .PutIf(render.settings.UseCSS, R"( class="DraloEditBtnBar")")
      .Put(">");
}

void PutAddButton(const shell::Render& render) {
  const shell::Settings& settings = render.settings;
  if (!util::ContainsWord(settings.EditOptions, "ADD")) return;
  render.out.Put("&nbsp;<input")
      .PutIf(settings.UseCSS, R"( class="DraloInputBtn")")
      .Put(R"( type="submit" name="{}" value="{}">)", render.keys(shell::key::kFormAdd),
           Verbatim{settings.language_tables->buttons[shell::kAdd]});
}

void PutButtonBarEnd(const shell::Render& render, std::string_view message) {
  render.out.Put("{}</td></tr>\r\n</table></td></tr>\r\n", Verbatim{message});
}

void PutButtonBarWithoutRecord(const shell::Render& render) {
  if (!util::ContainsWord(render.settings.EditOptions, "UPDATE")) return;
  PutButtonBarStart(render);
  PutAddButton(render);
  PutButtonBarEnd(render, render.settings.edit_status_message);
}

}  // namespace dralo::views
