#include "driver/hidden_state.h"

#include <string_view>

#include "shell/page_fields.h"
#include "util/control_markup.h"
#include "views/navigation_bar.h"

namespace dralo::driver {

void PutHiddenState(shell::Render& render) {
  namespace key = shell::key;
  const shell::Settings& settings = render.settings;
  const auto put = [&](std::string_view name, auto value) {
    render.out.Put("<input type=\"hidden\" name=\"{}\" value=\"{}\">\r\n", render.keys(name), value);
  };

  put(key::kCurrRecord, render.current_record);
  if (settings.CountRecords) put(key::kCountRecords, util::Verbatim{"on"});
  // The select carries the page size itself; posted twice it would be no number.
  if (!views::ShowsRecordsPerPageSelect(render)) put(key::kMaxRecords, settings.RecordsPerPage);
  if (settings.PersistentSQL) put(key::kSql, util::Verbatim{settings.sql});
  put(key::kFormDisplay, util::Quoted{render.form_display});
  put(key::kOrderByFields, util::Quoted{settings.OrderByFields});
  // Any text, "False" too, is read back as descending.
  put(key::kOrderByDesc, util::Verbatim{settings.OrderByDesc ? "True" : ""});
  shell::PutPageFormFields(render.out, settings, render.keys.GetRequest());
}

void PutHiddenKey(shell::Render& render, std::string_view primary_key) {
  render.out.Put("<input type=\"hidden\" name=\"{}\" value=\"", render.keys(shell::key::kPrimaryKey));
  util::PutAttributeText(render.out, primary_key);
  render.out.Put("\">\r\n");
}

}  // namespace dralo::driver
