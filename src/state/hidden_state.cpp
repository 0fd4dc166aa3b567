#include "state/hidden_state.h"

#include <string_view>

#include "state/page_fields.h"
#include "state/request_state.h"
#include "state/value_text.h"

namespace dralo::state {

void PutHiddenState(const Render& render) {
  const settings::Settings& settings = render.settings;
  const auto put = [&](std::string_view name, auto value) {
    render.out.Put("<input type=\"hidden\" name=\"{}\" value=\"{}\">\r\n", render.keys(name), value);
  };
  const auto put_text = [&](std::string_view name, std::string_view value) {
    if (settings.Hardened) {
      put(name, html::Text{value});
    } else {
      put(name, html::Quoted{value});
    }
  };

  put(key::kCurrRecord, render.view.current_record);
  if (render.view.is_counted) put(key::kCountRecords, html::Verbatim{"on"});
  // The select posts the page size itself; posted twice it would be no number.
  if (!ShowsRecordsPerPageSelect(render)) put(key::kMaxRecords, render.view.page_size);
  // A hardened page runs only its own statement.
  if (settings.PersistentSQL && !settings.Hardened) put(key::kSql, html::Verbatim{render.view.sql});
  put_text(key::kFormDisplay, render.view.form_display);
  put_text(key::kOrderByFields, render.view.order_by);
  // Any text, "False" too, is read back as descending.
  put(key::kOrderByDesc, html::Verbatim{render.view.is_descending ? "True" : ""});
  PutPageFormFields(render.out, settings, render.keys.GetRequest());
}

void PutHiddenKey(const Render& render, std::string_view primary_key) {
  render.out.Put("<input type=\"hidden\" name=\"{}\" value=\"", render.keys(key::kPrimaryKey));
  PutInAttribute(render.out, render, primary_key);
  render.out.Put("\">\r\n");
}

}  // namespace dralo::state
