#pragma once

#include "state/render.h"

namespace dralo::state {

// The token by which a hardened page that sets TokenCallback knows the forms that it has written for the
// visitor. It stands in forms that change records, and nowhere else.

/// Writes the hidden input with the token; none where the page asks for none. A function of the page that
/// fails is reported, and the form does without.
void PutFormToken(Render& render);

/// Whether the posted form carries the visitor's token, exactly once, or the page asks for none. A function
/// of the page that fails is reported and knows no token.
bool HasFormToken(Render& render);

}  // namespace dralo::state
