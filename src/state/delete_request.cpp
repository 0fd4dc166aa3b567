#include "state/delete_request.h"

namespace dralo::state {
namespace {

bool HasQuestion(const settings::Settings& settings) {
  return settings.Hardened && !settings.EditConfirmDeleteString.empty();
}

}  // namespace

bool OffersDelete(const settings::Settings& settings) {
  return settings.edit.remove && !settings.DeleteSQL.empty();
}

bool OffersForm(const settings::Settings& settings) {
  return settings.edit.update || (settings.Hardened && OffersDelete(settings));
}

bool IsDeletePosted(const settings::Settings& settings, const RequestKeys& keys) {
  if (!HasQuestion(settings)) return keys.Has(key::kFormDelete);
  return keys.Has(key::kFormDeleteConfirmed);
}

bool AsksToDelete(const settings::Settings& settings, const RequestKeys& keys) {
  return HasQuestion(settings) && OffersDelete(settings) && keys.Has(key::kFormDelete) &&
         !keys.Has(key::kFormDeleteConfirmed);
}

}  // namespace dralo::state
