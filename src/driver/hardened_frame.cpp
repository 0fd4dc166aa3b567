#include "driver/hardened_frame.h"

#include <algorithm>
#include <cstddef>
#include <string>

#include "text/ascii.h"

namespace dralo::driver {
namespace {

bool IsWord(std::string_view tag) { return !tag.empty() && std::ranges::all_of(tag, text::IsLetterOrDigit); }

void RemoveHost(std::string& address) {
  const std::size_t slashes = std::min(address.find_first_not_of("/\\"), address.size());
  if (slashes > 0) address.replace(0, slashes, "/");
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
