#include "state/current_mode.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "dralo/error.h"
#include "state/delete_request.h"
#include "state/request_state.h"
#include "text/letter_case.h"

namespace dralo::state {
namespace {

/// The page size that the request asks for; the property's when the request asks for none, or for one that
/// cannot be read.
std::int16_t PageSizeToGoBy(const settings::Settings& settings, const RequestKeys& keys,
                            const platform::Formatting& formatting) {
  try {
    return RequestedPageSize(settings, keys, formatting);
  } catch (const platform::Error&) {
    return settings.RecordsPerPage;
  }
}

/// Without a script that leaves edit mode, every post of a form asks for that form again. So on a hardened
/// page a posted change shows it again only to ask before a delete.
bool AsksForEditHardened(const settings::Settings& settings, const RequestKeys& keys) {
  if (keys.Has(key::kFormView)) return false;
  if (AsksToDelete(settings, keys)) return true;
  const bool is_change =
      keys.Has(key::kFormUpdate) || keys.Has(key::kFormDelete) || keys.Has(key::kFormDeleteConfirmed);
  return !is_change && (keys.Has(key::kFormEdit) || keys.Has(key::kEditPrimaryKey));
}

bool AsksForEdit(const settings::Settings& settings, const RequestKeys& keys, bool has_failed) {
  if (has_failed) return true;
  if (settings.Hardened) return AsksForEditHardened(settings, keys);
  return keys.Has(key::kFormEdit) && !keys.Has(key::kFormView);
}

/// After a failed save the form for a new record comes back when the posted form was one, and in no other
/// case.
bool AsksForAdd(const RequestKeys& keys, bool has_failed) {
  if (has_failed) return keys.Has(key::kFormInsert);
  return keys.Has(key::kFormAdd) && !keys.Has(key::kFormView);
}

bool ShowsForm(const settings::Settings& settings, const RequestKeys* keys,
               const platform::Formatting& formatting) {
  using settings::DisplayKind;
  if (settings.display == DisplayKind::kForm) return true;
  if (keys != nullptr && text::EqualIgnoringCase(keys->Value(key::kFormDisplay), kOneRecord)) return true;
  if (settings.display != DisplayKind::kFormWhenOnePerPage) return false;
  return (keys == nullptr ? settings.RecordsPerPage : PageSizeToGoBy(settings, *keys, formatting)) == 1;
}

}  // namespace

std::string_view ModeName(Mode mode) {
  constexpr std::array<std::string_view, 4> kNames = {"grid", "formview", "formedit", "formadd"};
  return kNames[static_cast<std::size_t>(mode)];
}

Mode CurrentMode(const settings::Settings& settings, const RequestKeys* keys,
                 const platform::Formatting& formatting, bool has_failed) {
  if (!ShowsForm(settings, keys, formatting)) return Mode::kGrid;
  // The form for a new record needs "UPDATE" too; "ADD" alone shows the button that leads to it. On a
  // hardened page each word stands for itself.
  const bool may_add = settings.Hardened ? settings.edit.add : settings.edit.update;
  if (may_add && keys != nullptr && AsksForAdd(*keys, has_failed)) return Mode::kFormAdd;
  if (!OffersForm(settings)) return Mode::kFormView;
  const bool edits =
      settings.edit.skips_view || (keys != nullptr && AsksForEdit(settings, *keys, has_failed));
  return edits ? Mode::kFormEdit : Mode::kFormView;
}

}  // namespace dralo::state
