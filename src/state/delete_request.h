#pragma once

#include "settings/settings.h"
#include "state/request_keys.h"

namespace dralo::state {

/// Whether forms of the page have a button that deletes.
bool OffersDelete(const settings::Settings& settings);

/// Whether records open in a form: to be changed, or on a hardened page to be deleted alone.
bool OffersForm(const settings::Settings& settings);

/// Whether the request deletes: with the button of the form, on a hardened page that asks first with the
/// button of the question, whether a script or a page has put it.
bool IsDeletePosted(const settings::Settings& settings, const RequestKeys& keys);

/// Whether the request wants to delete, and the page must ask first.
bool AsksToDelete(const settings::Settings& settings, const RequestKeys& keys);

}  // namespace dralo::state
