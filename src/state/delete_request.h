#pragma once

#include "settings/settings.h"
#include "state/request_keys.h"

namespace dralo::state {

/// Whether forms of the page have a button that deletes.
bool OffersDelete(const settings::Settings& settings);

/// Whether records open in a form: to be changed, or on a hardened page also only to be deleted.
bool OffersForm(const settings::Settings& settings);

/// Whether the request deletes: by the button of the form, or, on a hardened page that asks first, by the
/// button of the question, which a script or the page may have put.
bool IsDeletePosted(const settings::Settings& settings, const RequestKeys& keys);

/// Whether the request wants to delete, and the page must ask first.
bool AsksToDelete(const settings::Settings& settings, const RequestKeys& keys);

}  // namespace dralo::state
