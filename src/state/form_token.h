#pragma once

#include "state/render.h"

namespace dralo::state {

// The token by which a hardened page with a TokenCallback recognises the forms that it has written for this
// visitor. It stands in forms that change records, and nowhere else.

/// Writes the hidden input with the token; nothing where the page has no TokenCallback. A callback that fails
/// is reported, and the form goes without a token.
void PutFormToken(Render& render);

/// Whether the posted form carries the visitor's token exactly once, or the page has no TokenCallback. A
/// callback that fails is reported, and the answer is no.
bool HasFormToken(Render& render);

}  // namespace dralo::state
