#include "driver/hardened_frame.h"

#include <algorithm>
#include <string>

#include "text/ascii.h"

namespace dralo::driver {
namespace {

bool IsWord(std::string_view tag) { return !tag.empty() && std::ranges::all_of(tag, text::IsLetterOrDigit); }

/// An address that began with two slashes would name a host. Browsers treat backslashes as slashes there, and
/// ignore blanks and control characters before and between them.
void RemoveHost(std::string& address) {
  const auto start = std::ranges::find_if(
      address, [](char c) { return c != '/' && c != '\\' && static_cast<unsigned char>(c) > ' '; });
  if (start != address.begin()) address.replace(address.begin(), start, "/");
}

}  // namespace

bool PrepareHardenedFrame(state::Render& render) {
  if (!render.settings.Hardened) return true;
  RemoveHost(render.script_name);
  if (IsWord(render.settings.Tag)) return true;
  render.Errors().Add("The Tag of a hardened page must consist of letters from A to Z and digits",
                      "WriteHTMLTable");
  return false;
}

}  // namespace dralo::driver
