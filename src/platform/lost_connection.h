#pragma once

#include <algorithm>
#include <string_view>

#include "dralo/error.h"

namespace dralo::platform {

/// The connection was lost while a transaction was being committed, so that it may have been or not.
inline constexpr std::string_view kUnknownOutcome = "08007";

inline bool IsOutcomeUnknown(const Error& error) { return error.SqlState() == kUnknownOutcome; }

/// Whether the connection to the database could not be had, was lost, or given up for want of an answer.
inline bool IsConnectionLost(const Error& error) {
  constexpr std::string_view kEnds[] = {"57P01", "57P02", "HYT00"};
  const std::string_view state = error.SqlState();
  return state.starts_with("08") || std::ranges::find(kEnds, state) != std::end(kEnds);
}

}  // namespace dralo::platform
