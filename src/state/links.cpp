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
  text.PutIf(settings.CountRecords, "&{}=on", render.keys(key::kCountRecords))
      .Put("&{}={}", render.keys(key::kMaxRecords), settings.RecordsPerPage)
      .PutIf(settings.PersistentSQL, "&{}={}", render.keys(key::kSql), Encoded{settings.sql});
  PutPageQueryFields(text, settings, render.keys.GetRequest());
  return text.Take();
}

void PutStateQuery(html::HtmlWriter& out, const Render& render, std::int32_t number) {
  out.Put("{}={}{}", render.keys(key::kCurrRecord), number, Verbatim{render.state_query_tail});
}

void PutOrderQuery(html::HtmlWriter& out, const Render& render) {
  out.Put("&{}={}", render.keys(key::kOrderByFields), Encoded{render.settings.OrderByFields})
      .PutIf(render.settings.OrderByDesc, "&{}=True", render.keys(key::kOrderByDesc));
}

void PutAddLink(html::HtmlWriter& out, const Render& render) {
  out.Put("{}?{}=formOneRec&{}=1", Verbatim{render.script_name}, render.keys(key::kFormDisplay),
          render.keys(key::kFormAdd));
  PutOrderQuery(out, render);
  out.Put("&");
  PutStateQuery(out, render, render.current_record);
}

void PutListLink(html::HtmlWriter& out, const Render& render) {
  out.Put("{}?", Verbatim{render.script_name});
  PutStateQuery(out, render, render.current_record);
  PutOrderQuery(out, render);
}

}  // namespace dralo::state
