#include "views/button_bar.h"

#include "state/delete_request.h"

namespace dralo::views {

using html::Verbatim;

bool HasButtonBar(const state::Render& render) {
  const settings::Settings& settings = render.settings;
  return state::OffersForm(settings) || (settings.Hardened && settings.edit.add);
}

void PutButtonBarStart(const state::Render& render) {
  render.out.Put("<tr><td><table width=\"100%\" cellspacing=0 cellpadding=0>\r\n<tr><td colspan=2")
      .PutIf(render.settings.UseCSS, R"( class="DraloEditBtnBar")")
      .Put(">");
}

Verbatim WithoutRules(const state::Render& render) {
  const bool is_edited =
      render.view.mode == state::Mode::kFormEdit || render.view.mode == state::Mode::kFormAdd;
  return {is_edited && !render.settings.EditRules.empty() ? " formnovalidate" : ""};
}

void PutAddButton(const state::Render& render) {
  const settings::Settings& settings = render.settings;
  if (!settings.edit.add) return;
  render.out.Put("&nbsp;<input")
      .PutIf(settings.UseCSS, R"( class="DraloInputBtn")")
      .Put(R"( type="submit" name="{}" value="{}"{}>)", render.keys(state::key::kFormAdd),
           Verbatim{settings.language_tables->buttons[settings::kAdd]}, WithoutRules(render));
}

void PutButtonBarEnd(const state::Render& render, std::string_view message) {
  render.out.Put("{}</td></tr>\r\n</table></td></tr>\r\n", Verbatim{message});
}

void PutButtonBarWithoutRecord(const state::Render& render) {
  if (!HasButtonBar(render)) return;
  PutButtonBarStart(render);
  PutAddButton(render);
  PutButtonBarEnd(render, render.outcome.status_message);
}

}  // namespace dralo::views
