#include "html/control_markup.h"

#include <cstddef>

#include "html/character_reference.h"
#include "text/letter_case.h"

namespace dralo::html {
namespace {

constexpr std::string_view kTextareaEnd = "</textarea";

bool EndsTextarea(std::string_view text) {
  return text.starts_with("</") && text::EqualIgnoringCase(text.substr(0, kTextareaEnd.size()), kTextareaEnd);
}

/// What must be written for the first character of `text`; empty when the character itself.
std::string_view Replacement(std::string_view text, TextPlace place) {
  switch (text[0]) {
    case '"':
      return "&quot;";
    case '&':
      return BeginsCharacterReference(text, place) ? "&amp;" : "";
    case '<':
      return place == TextPlace::kElement && EndsTextarea(text) ? "&lt;" : "";
    default:
      return {};
  }
}

void PutText(HtmlWriter& out, std::string_view text, TextPlace place) {
  std::size_t written = 0;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const std::string_view replacement = Replacement(text.substr(at), place);
    if (replacement.empty()) continue;
    out.Write(Joined{text.substr(written, at - written), replacement});
    written = at + 1;
  }
  out.Write(Verbatim{text.substr(written)});
}

}  // namespace

void PutAttributeText(HtmlWriter& out, std::string_view text) { PutText(out, text, TextPlace::kAttribute); }

void PutTextareaStart(HtmlWriter& out, std::string_view text) {
  out.PutIf(text.starts_with('\n') || text.starts_with('\r'), "\r\n");
}

void PutTextareaText(HtmlWriter& out, std::string_view text) {
  PutTextareaStart(out, text);
  PutText(out, text, TextPlace::kElement);
}

}  // namespace dralo::html
