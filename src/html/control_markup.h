#pragma once

#include <string_view>

#include "html/html_writer.h"

namespace dralo::html {

/// Writes `text` so that the control shows exactly it: double quotes as "&quot;", and "&" as "&amp;" where a
/// browser would read a character reference. Everything else is written as it is. For the value of an
/// attribute between double quotes.
void PutAttributeText(HtmlWriter& out, std::string_view text);

/// The same for the content of a textarea. "<" is written "&lt;" before "/textarea", and a line break at the
/// start is doubled, because browsers drop one directly after the tag.
void PutTextareaText(HtmlWriter& out, std::string_view text);

/// Writes what must stand between the tag of a textarea and `text` so that no line break is dropped.
void PutTextareaStart(HtmlWriter& out, std::string_view text);

}  // namespace dralo::html
