#include "state/value_text.h"

#include "html/control_markup.h"

namespace dralo::state {

void PutInAttribute(html::HtmlWriter& out, const Render& render, std::string_view text) {
  if (!render.settings.Hardened) return html::PutAttributeText(out, text);
  out.Write(html::Text{text});
}

void PutInTextarea(html::HtmlWriter& out, const Render& render, std::string_view text) {
  if (!render.settings.Hardened) return html::PutTextareaText(out, text);
  html::PutTextareaStart(out, text);
  out.Write(html::Text{text});
}

void PutInText(html::HtmlWriter& out, const Render& render, std::string_view text) {
  if (render.settings.Hardened) {
    out.Write(html::Text{text});
  } else {
    out.Write(html::Verbatim{text});
  }
}

}  // namespace dralo::state
