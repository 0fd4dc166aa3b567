#pragma once

#include <string_view>

namespace dralo::state {

/// The views that can stand on a page.
enum class Mode { kGrid, kFormView, kFormEdit, kFormAdd };

/// "grid", "formview", "formedit" or "formadd".
std::string_view ModeName(Mode mode);

/// Whether single records are shown, to be read, edited or added.
constexpr bool IsForm(Mode mode) { return mode != Mode::kGrid; }

}  // namespace dralo::state
