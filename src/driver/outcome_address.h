#pragma once

#include "dralo/response.h"
#include "state/render.h"

namespace dralo::driver {

/// Sends the visitor to the page that shows what a change has done, so that a reload changes nothing again:
/// the record that was saved, or the list. Does nothing when nothing was changed, when there is something to
/// tell, when headers were sent, and when the address would have more than kMostAddressBytes; the page then
/// follows as ever.
void RedirectToOutcome(state::Render& render, platform::Response& response);

/// Servers give all headers of an answer 4 KB by default.
inline constexpr std::size_t kMostAddressBytes = 2'000;

/// Makes the outcome that RedirectToOutcome() put into the address the edit status message, unless another
/// site has made the link.
void TakeOutcomeOfAddress(state::Render& render);

}  // namespace dralo::driver
