#pragma once

#include "dralo/response.h"
#include "state/render.h"

namespace dralo::driver {

/// Sends the visitor to the page that shows what a change has done, the saved record or the list, so that a
/// reload does not change anything again. Does nothing when nothing was changed, when there are messages to
/// show, when headers were sent, and when the address would have more than kMostAddressBytes; the page is
/// then written as usual.
void RedirectToOutcome(state::Render& render, platform::Response& response);

/// Servers give all headers of an answer 4 KB by default.
inline constexpr std::size_t kMostAddressBytes = 2'000;

/// Makes the outcome that RedirectToOutcome() has put into the address the edit status message, unless the
/// link comes from another site.
void TakeOutcomeOfAddress(state::Render& render);

}  // namespace dralo::driver
