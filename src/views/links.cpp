#include "views/links.h"

#include "shell/page_fields.h"
#include "shell/request_keys.h"

namespace dralo::views {
namespace {

namespace key = shell::key;
using util::Encoded;
using util::Verbatim;

}  // namespace

std::string StateQueryTail(const shell::Render& render) {
  const shell::Settings& settings = render.settings;
  util::HtmlWriter text;
  text.PutIf(settings.CountRecords, "&{}=on", render.keys(key::kCountRecords))
      .Put("&{}={}", render.keys(key::kMaxRecords), settings.RecordsPerPage)
      .PutIf(settings.PersistentSQL, "&{}={}", render.keys(key::kSql), Encoded{settings.sql});
  shell::PutPageQueryFields(text, settings, render.keys.GetRequest());
  return text.Take();
}

void PutStateQuery(util::HtmlWriter& out, const shell::Render& render, std::int32_t number) {
  out.Put("{}={}{}", render.keys(key::kCurrRecord), number, Verbatim{render.state_query_tail});
}

void PutOrderQuery(util::HtmlWriter& out, const shell::Render& render) {
  out.Put("&{}={}", render.keys(key::kOrderByFields), Encoded{render.settings.OrderByFields})
      .PutIf(render.settings.OrderByDesc, "&{}=True", render.keys(key::kOrderByDesc));
}

void PutAddLink(util::HtmlWriter& out, const shell::Render& render) {
  out.Put("{}?{}=formOneRec&{}=1", Verbatim{render.script_name}, render.keys(key::kFormDisplay),
          render.keys(key::kFormAdd));
  PutOrderQuery(out, render);
  out.Put("&");
  PutStateQuery(out, render, render.current_record);
}

void PutListLink(util::HtmlWriter& out, const shell::Render& render) {
  out.Put("{}?", Verbatim{render.script_name});
  PutStateQuery(out, render, render.current_record);
  PutOrderQuery(out, render);
}

}  // namespace dralo::views
