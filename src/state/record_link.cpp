#include "state/record_link.h"

#include <utility>

#include "html/text_escape.h"
#include "state/links.h"
#include "state/request_keys.h"

namespace dralo::state {
namespace {

using html::Verbatim;

void Remove(std::string& text, std::string_view part) {
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at))
    text.erase(at, part.size());
}

std::string ViewParameter(const Render& render) {
  html::HtmlWriter text;
  text.Put("{}={}", render.keys(key::kFormDisplay), html::Verbatim{kOneRecord});
  return text.Take();
}

}  // namespace

RecordLink::RecordLink(const Render& render, platform::Recordset& recordset)
    : after_number_(render.state_query_tail), key_values_(PrimaryKeyValueList::ForLink(render, recordset)) {
  html::HtmlWriter text;
  text.Put("{}?{}&", Verbatim{render.script_name}, Verbatim{ViewParameter(render)});
  before_key_ = text.Take();
  PutOrderQuery(text, render);
  text.Put("&{}=", render.keys(key::kCurrRecord));
  before_number_ = text.Take();
}

RecordLink RecordLink::InAttribute(const Render& render, platform::Recordset& recordset) {
  RecordLink link(render, recordset);
  if (!render.settings.Hardened) return link;
  for (std::string* part : {&link.before_key_, &link.before_number_, &link.after_number_}) {
    std::string escaped;
    html::AppendEscaped(escaped, *part);
    *part = std::move(escaped);
  }
  return link;
}

RecordLink RecordLink::WithViewAtEnd(const Render& render, platform::Recordset& recordset) {
  RecordLink link(render, recordset);
  const std::string view = ViewParameter(render);
  for (std::string* part : {&link.before_key_, &link.before_number_, &link.after_number_})
    Remove(*part, view);
  link.after_number_.append("&").append(view);
  return link;
}

void RecordLink::Put(html::HtmlWriter& out, Render& render, std::int32_t number) {
  out.Write(Verbatim{before_key_});
  if (key_values_.Read(render.Errors())) {
    out.Put("{}=", render.keys(key::kPrimaryKey));
    key_values_.Put(out);
  } else {
    out.Put("{}={}", render.keys(key::kBookmark), number);
  }
  out.Put("{}{}{}", Verbatim{before_number_}, number, Verbatim{after_number_});
}

}  // namespace dralo::state
