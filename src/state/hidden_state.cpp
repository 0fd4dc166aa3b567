#include "state/hidden_state.h"

#include <string_view>

#include "html/control_markup.h"
#include "state/page_fields.h"
#include "state/request_state.h"

namespace dralo::state {

void PutHiddenState(Render& render) {
  const settings::Settings& settings = render.settings;
  const auto put = [&](std::string_view name, auto value) {
    render.out.Put("<input type=\"hidden\" name=\"{}\" value=\"{}\">\r\n", render.keys(name), value);
  };

  put(key::kCurrRecord, render.current_record);
  if (settings.CountRecords) put(key::kCountRecords, html::Verbatim{"on"});
  // The select carries the page size itself; posted twice it would be no number.
  if (!ShowsRecordsPerPageSelect(render)) put(key::kMaxRecords, settings.RecordsPerPage);
  if (settings.PersistentSQL) put(key::kSql, html::Verbatim{settings.sql});
  put(key::kFormDisplay, html::Quoted{render.form_display});
  put(key::kOrderByFields, html::Quoted{settings.OrderByFields});
  // Any text, "False" too, is read back as descending.
  put(key::kOrderByDesc, html::Verbatim{settings.OrderByDesc ? "True" : ""});
  PutPageFormFields(render.out, settings, render.keys.GetRequest());
}

void PutHiddenKey(Render& render, std::string_view primary_key) {
  render.out.Put("<input type=\"hidden\" name=\"{}\" value=\"", render.keys(key::kPrimaryKey));
  html::PutAttributeText(render.out, primary_key);
  render.out.Put("\">\r\n");
}

}  // namespace dralo::state
