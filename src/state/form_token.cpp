#include "state/form_token.h"

#include <string>

#include "settings/error_report.h"

namespace dralo::state {
namespace {

constexpr std::string_view kRenderer = "TokenCallback";

bool AsksForToken(const settings::Settings& settings) {
  return settings.Hardened && settings.TokenCallback != nullptr;
}

}  // namespace

void PutFormToken(Render& render) {
  if (!AsksForToken(render.settings)) return;
  settings::Guarded(render.Errors(), kRenderer, [&] {
    const std::string token = render.settings.TokenCallback->Make();
    render.out.Put(R"(<input type="hidden" name="{}" value="{}">)", render.keys(key::kToken),
                   html::Text{token});
  });
}

bool HasFormToken(Render& render) {
  if (!AsksForToken(render.settings)) return true;
  return settings::Guarded(render.Errors(), kRenderer, false, [&] {
    const auto posted = render.keys.PostedOnce(key::kToken);
    return posted && render.settings.TokenCallback->Knows(*posted);
  });
}

}  // namespace dralo::state
