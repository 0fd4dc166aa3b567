#include "state/current_mode.h"

#include <cstdint>

#include "dralo/error.h"
#include "state/request_state.h"
#include "text/letter_case.h"

namespace dralo::state {
namespace {

/// The page size that the request asks for; the property's where it asks for none or for none that can be
/// read.
std::int16_t PageSizeToGoBy(const settings::Settings& settings, const RequestKeys& keys,
                            const platform::Formatting& formatting) {
  try {
    return RequestedPageSize(settings.RecordsPerPage, keys, formatting);
  } catch (const platform::Error&) {
    return settings.RecordsPerPage;
  }
}

/// What decides about the view besides the properties.
struct ViewRequest {
  std::int16_t records_per_page = 0;
  bool form_display = false;  ///< The one-record view is asked for.
  bool edit = false;          ///< The edit form is asked for.
  bool add = false;           ///< The add form is asked for.
};

bool AsksForEdit(const RequestKeys& keys, bool has_failed) {
  return has_failed || (keys.Has(key::kFormEdit) && !keys.Has(key::kFormView));
}

/// A failed save decides by what its own form said: an insert comes back as an insert, and nothing else does.
bool AsksForAdd(const RequestKeys& keys, bool has_failed) {
  if (has_failed) return keys.Has(key::kFormInsert);
  return keys.Has(key::kFormAdd) && !keys.Has(key::kFormView);
}

bool AsksForFormDisplay(const RequestKeys& keys) {
  return text::EqualIgnoringCase(keys.Value(key::kFormDisplay), kOneRecord);
}

Mode SelectMode(const settings::Settings& settings, const ViewRequest& request) {
  using settings::DisplayKind;
  const bool form = settings.display == DisplayKind::kForm || request.form_display ||
                    (settings.display == DisplayKind::kFormWhenOnePerPage && request.records_per_page == 1);
  if (!form) return Mode::kGrid;
  // Adding, too, needs the permission to update: the add button alone needs "ADD".
  if (!settings.edit.update) return Mode::kFormView;
  if (request.add) return Mode::kFormAdd;
  if (request.edit || settings.edit.skips_view) return Mode::kFormEdit;
  return Mode::kFormView;
}

}  // namespace

std::string_view ModeName(Mode mode) {
  switch (mode) {
    case Mode::kGrid:
      return "grid";
    case Mode::kFormView:
      return "formview";
    case Mode::kFormEdit:
      return "formedit";
    case Mode::kFormAdd:
      return "formadd";
  }
  return "grid";
}

Mode CurrentMode(const settings::Settings& settings, const RequestKeys* keys,
                 const platform::Formatting& formatting, bool has_failed) {
  if (keys == nullptr) return SelectMode(settings, {.records_per_page = settings.RecordsPerPage});
  return SelectMode(settings, {.records_per_page = PageSizeToGoBy(settings, *keys, formatting),
                               .form_display = AsksForFormDisplay(*keys),
                               .edit = AsksForEdit(*keys, has_failed),
                               .add = AsksForAdd(*keys, has_failed)});
}

}  // namespace dralo::state
