#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::platform {

/// What holds for all pages of a process. Given to an Environment, which keeps a copy.
struct Site {
  /// Whether views are hardened unless their page says otherwise.
  bool hardened = false;

  /// Other sites whose pages may change records of hardened views: each exactly as a browser sends it in the
  /// header Origin, "https://shop.example" or "https://shop.example:8443".
  std::vector<std::string> trusted_origins = {};

  /// The host names under which hardened views answer, with a port when only that one is meant. None: any.
  std::vector<std::string> hosts = {};

  /// Takes a line about what went wrong in a hardened view: one line, at most 2,000 bytes. Called by the
  /// threads that render, by several at the same moment; what it throws ends the rendering. Without it
  /// nothing is logged.
  std::function<void(std::string_view line)> log = nullptr;
};

}  // namespace dralo::platform

namespace dralo {

using platform::Site;

}  // namespace dralo
