#pragma once

#include <exception>
#include <string>
#include <string_view>

#include "record/journal.h"

namespace dralo::record {

/// What a test page throws where a host ends its script.
struct PageEnded {};

/// Does it; what it throws is part of what is observed.
template <class Action>
bool Attempt(Journal& journal, std::string_view what, Action action) {
  try {
    action();
    return true;
  } catch (const PageEnded&) {
    journal.Add(what, "ends the page");
  } catch (const std::exception& error) {
    journal.Add(std::string(what) + " throws", error.what());
  }
  return false;
}

}  // namespace dralo::record
