#include "state/links.h"

#include "state/page_fields.h"
#include "state/request_keys.h"

namespace dralo::state {
namespace {

using html::Encoded;
using html::Verbatim;

}  // namespace

std::string StateQueryTail(const Render& render) {
  const settings::Settings& settings = render.settings;
  html::HtmlWriter text;
  text.PutIf(render.view.is_counted, "&{}=on", render.keys(key::kCountRecords))
      .Put("&{}={}", render.keys(key::kMaxRecords), render.view.page_size)
      .PutIf(settings.PersistentSQL && !settings.Hardened, "&{}={}", render.keys(key::kSql),
             Encoded{render.view.sql});
  PutPageQueryFields(text, settings, render.keys.GetRequest(), render.links);
  return text.Take();
}

void PutStateQuery(html::HtmlWriter& out, const Render& render, std::int32_t number) {
  out.Put("{}={}{}", render.keys(key::kCurrRecord), number, Verbatim{render.state_query_tail});
}

void PutOrderQuery(html::HtmlWriter& out, const Render& render) {
  out.Put("&{}={}", render.keys(key::kOrderByFields), Encoded{render.view.order_by})
      .PutIf(render.view.is_descending, "&{}=True", render.keys(key::kOrderByDesc));
}

void PutAddLink(html::HtmlWriter& out, const Render& render) {
  PutAddress(out, render, [&](html::HtmlWriter& address) {
    address.Put("{}?{}={}&{}=1", Verbatim{render.script_name}, render.keys(key::kFormDisplay),
                Verbatim{kOneRecord}, render.keys(key::kFormAdd));
    PutOrderQuery(address, render);
    address.Put("&");
    PutStateQuery(address, render, render.view.current_record);
  });
}

void PutListLink(html::HtmlWriter& out, const Render& render) {
  PutAddress(out, render, [&](html::HtmlWriter& address) {
    address.Put("{}?", Verbatim{render.script_name});
    PutStateQuery(address, render, render.view.current_record);
    PutOrderQuery(address, render);
  });
}

}  // namespace dralo::state
