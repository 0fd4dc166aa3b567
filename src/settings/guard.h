#pragma once

#include <exception>
#include <string_view>
#include <utility>

#include "settings/settings.h"

namespace dralo::settings {

/// Appends what went wrong to the view's ErrorMessage: the description, " in ", the renderer's name and
/// "<br>".
inline void ReportError(Settings& settings, std::string_view description, std::string_view renderer) {
  settings.ErrorMessage.append(description).append(" in ").append(renderer).append("<br>");
}

/// Returns body(), or `neutral` when it throws; the failure is reported under `renderer`. The outermost call
/// of every renderer: a part that fails leaves a message and its neutral result, never a broken page script.
/// Only std::exception is caught: a host ends a page by throwing something else, which passes through.
template <class Result, class Body>
Result Guarded(Settings& settings, std::string_view renderer, Result neutral, Body&& body) {
  try {
    return std::forward<Body>(body)();
  } catch (const std::exception& error) {
    ReportError(settings, error.what(), renderer);
  }
  return neutral;
}

/// The same for renderers without a result.
template <class Body>
void Guarded(Settings& settings, std::string_view renderer, Body&& body) {
  try {
    std::forward<Body>(body)();
  } catch (const std::exception& error) {
    ReportError(settings, error.what(), renderer);
  }
}

}  // namespace dralo::settings
