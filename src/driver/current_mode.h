#pragma once

#include <cstdint>
#include <string_view>

#include "platform/formatting.h"
#include "shell/request_keys.h"
#include "shell/settings.h"

namespace dralo::driver {

enum class Mode { kGrid, kFormView, kFormEdit, kFormAdd };

/// "grid", "formview", "formedit" or "formadd".
std::string_view ModeName(Mode mode);

/// What decides about the view besides the properties.
struct ViewRequest {
  std::int16_t records_per_page = 0;
  bool form_display = false;  ///< The one-record view is asked for.
  bool edit = false;          ///< The edit form is asked for.
  bool add = false;           ///< The add form is asked for.
};

/// Whether the request asks for the edit or the add form; closing a form asks for neither, and a failed save
/// brings its form back.
bool AsksForEdit(const shell::Settings& settings, const shell::RequestKeys& keys);
bool AsksForAdd(const shell::Settings& settings, const shell::RequestKeys& keys);

/// Whether the request asks for the one-record view.
bool AsksForFormDisplay(const shell::RequestKeys& keys);

Mode SelectMode(const shell::Settings& settings, const ViewRequest& request);

/// The view that rendering would select now, without changing anything; `keys` is nullptr while there is no
/// request.
Mode CurrentMode(const shell::Settings& settings, const shell::RequestKeys* keys,
                 const platform::Formatting& formatting);

}  // namespace dralo::driver
