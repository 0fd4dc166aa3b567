#include "state/delete_request.h"

namespace dralo::state {
namespace {

bool HasQuestion(const settings::Settings& settings) {
  return settings.Hardened && !settings.EditConfirmDeleteString.empty();
}

}  // namespace

bool IsDeletePosted(const settings::Settings& settings, const RequestKeys& keys) {
  if (!HasQuestion(settings)) return keys.Has(key::kFormDelete);
  return keys.Has(key::kFormDeleteConfirmed);
}

bool AsksToDelete(const settings::Settings& settings, const RequestKeys& keys) {
  return HasQuestion(settings) && settings.edit.remove && !settings.DeleteSQL.empty() &&
         keys.Has(key::kFormDelete) && !keys.Has(key::kFormDeleteConfirmed);
}

}  // namespace dralo::state
