#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "dralo/error.h"
#include "fuzz/fuzz_input.h"
#include "fuzz/page_structure.h"
#include "html/address.h"
#include "html/template_places.h"
#include "html/value_place.h"
#include "text/ascii.h"
#include "text/list.h"

namespace dralo::fuzz {
namespace {

using html::PlaceKind;
using html::TemplateStart;
using html::ValuePlace;

/// A template and the places of its values.
struct Read {
  std::vector<std::string> literals;
  std::vector<ValuePlace> places;
  TemplateStart start;

  std::string With(std::string_view value) const {
    std::string html(start == TemplateStart::kText ? "" : "<b ");
    for (std::size_t at = 0; at < literals.size(); ++at) {
      html += literals[at];
      if (at < places.size()) html::AppendInPlace(html, value, places[at]);
    }
    return html.append(start == TemplateStart::kText ? "" : ">");
  }
};

bool IsScript(PlaceKind kind) { return kind == PlaceKind::kScriptString || kind == PlaceKind::kScriptValue; }

/// Whether a browser would run the address, which it reads without line breaks and tabs.
bool IsScriptAddress(std::string address) {
  std::erase_if(address, [](char c) { return static_cast<unsigned char>(c) <= ' '; });
  return text::StartsWithAscii(address, "javascript:") || text::StartsWithAscii(address, "data:");
}

void TryValueInPlace(std::string_view value, const ValuePlace& place) {
  std::string written;
  html::AppendInPlace(written, value, place);
  Require(written.find_first_of("<>") == written.npos, "no value brings markup");
  Require(written.find('\0') == written.npos, "no value brings a zero byte");
  Require(written.find('"') == written.npos || (place.is_whole_value && written == "\"\""),
          "no value brings a quote");
  Require(written.find('\'') == written.npos, "no value brings a single quote");
  if (place.is_unquoted) {
    Require(written.find_first_of(" \t\r\n\f`=") == written.npos,
            "no value ends an attribute without quotes");
  }
  if (place.kind == PlaceKind::kAddress || place.kind == PlaceKind::kRelativeAddress) {
    Require(!IsScriptAddress(written), "no value brings the address of a script");
  }
  if (IsScript(place.kind)) {
    Require(written.find_first_of("&;/(){}`$") == written.npos, "no value brings signs of scripts");
  }
}

}  // namespace

/// A digit for where the template begins; the template with "#" for each value; the value.
void Try(std::string_view input) {
  Parts parts(input);
  Read read{.literals = {},
            .places = {},
            .start = parts.Choose(2) == 0 ? TemplateStart::kText : TemplateStart::kAttributes};
  read.literals = text::Split(parts.Next(), "#");
  const std::vector<std::string_view> literals(read.literals.begin(), read.literals.end());
  try {
    read.places = html::FindPlaces(literals, read.start);
  } catch (const platform::Error&) {
    return;  // Browsers could read it in more than one way.
  }
  const std::string_view value = parts.Next();
  for (const ValuePlace& place : read.places) TryValueInPlace(value, place);
  const std::string structure = StructureOf(read.With("x"));
  Require(StructureOf(read.With(value)) == structure, "no value changes what a template consists of");
  Require(StructureOf(read.With("")) == structure, "no missing value changes what a template consists of");
}

}  // namespace dralo::fuzz
