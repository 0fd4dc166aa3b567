#include "html/attribute_meaning.h"

#include <algorithm>
#include <initializer_list>

namespace dralo::html {
namespace {

bool IsOneOf(std::string_view name, std::initializer_list<std::string_view> names) {
  return std::ranges::find(names, name) != names.end();
}

/// Elements that run or load code, or change what other addresses mean.
bool RunsCode(std::string_view element) {
  return IsOneOf(element,
                 {"script", "iframe", "frame", "embed", "object", "applet", "param", "base", "link", "meta",
                  "animate", "animatetransform", "animatemotion", "set", "portal", "fencedframe"});
}

/// Attributes that are harmless on those elements too.
bool IsHarmlessOnAll(std::string_view attribute) {
  return attribute.starts_with("data-") || attribute.starts_with("aria-") ||
         IsOneOf(attribute, {"id", "class", "title", "alt", "width", "height", "lang", "dir"});
}

bool IsAddress(std::string_view attribute) {
  return IsOneOf(attribute, {"href", "xlink:href", "src", "poster", "cite", "data", "background", "longdesc",
                             "lowsrc", "dynsrc", "manifest", "codebase", "usemap", "icon"});
}

bool IsForbidden(std::string_view attribute) {
  return IsOneOf(attribute, {"srcdoc", "srcset", "imagesrcset", "ping", "nonce", "integrity", "xml:base"});
}

}  // namespace

AttributeMeaning MeaningOf(std::string_view element, std::string_view attribute) {
  if (attribute.starts_with("on")) return AttributeMeaning::kScript;
  if (attribute == "style") return AttributeMeaning::kStyle;
  if (IsForbidden(attribute)) return AttributeMeaning::kForbidden;
  if (RunsCode(element))
    return IsHarmlessOnAll(attribute) ? AttributeMeaning::kPlain : AttributeMeaning::kForbidden;
  if (attribute == "action" || attribute == "formaction") return AttributeMeaning::kRelativeAddress;
  return IsAddress(attribute) ? AttributeMeaning::kAddress : AttributeMeaning::kPlain;
}

}  // namespace dralo::html
