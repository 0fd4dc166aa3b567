#include "html/address.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

#include "text/ascii.h"

namespace dralo::html {
namespace {

constexpr std::string_view kIgnored = "\t\r\n";

bool IsSlash(char c) { return c == '/' || c == '\\'; }

bool HasHost(std::string_view scheme) {
  return text::EqualAscii(scheme, "http") || text::EqualAscii(scheme, "https");
}

bool IsHarmlessScheme(std::string_view scheme) {
  return HasHost(scheme) || text::EqualAscii(scheme, "mailto") || text::EqualAscii(scheme, "tel");
}

/// The first bytes of an address as browsers read them: enough to recognise a harmless scheme.
class Beginning {
 public:
  explicit Beginning(std::string_view address) {
    for (const char c : address) {
      if (kIgnored.find(c) != kIgnored.npos) continue;
      if (c == ':' || c == '/' || c == '?' || c == '#' || size_ == text_.size()) {
        end_ = c;
        return;
      }
      text_[size_++] = c;
    }
  }

  /// Whether a colon comes before the path, or so late that what precedes it cannot be a harmless scheme.
  bool HasScheme(std::string_view address) const {
    if (end_ == ':') return true;
    if (end_ == '/' || end_ == '?' || end_ == '#') return false;
    const std::size_t stop = address.find_first_of(":/?#");
    return stop != address.npos && address[stop] == ':';
  }

  std::string_view Text() const { return {text_.data(), size_}; }
  bool EndsAtColon() const { return end_ == ':'; }

 private:
  std::array<char, 8> text_;
  std::size_t size_ = 0;
  char end_ = '\0';
};

bool IsHostOpen(std::string_view host_and_path) {
  const std::size_t host = std::min(host_and_path.find_first_not_of("/\\"), host_and_path.size());
  return host_and_path.find_first_of("/\\?#", host) == host_and_path.npos;
}

}  // namespace

std::string_view WithoutIgnoredStart(std::string_view address) {
  const auto start =
      std::ranges::find_if(address, [](char c) { return static_cast<unsigned char>(c) > ' '; });
  return {start, address.end()};
}

bool IsHarmlessAddress(std::string_view address) {
  const Beginning beginning(address);
  if (!beginning.HasScheme(address)) return true;
  return beginning.EndsAtColon() && IsHarmlessScheme(beginning.Text());
}

bool IsOwnAddress(std::string_view address) {
  if (Beginning(address).HasScheme(address)) return false;
  std::size_t slashes = 0;
  for (const char c : address) {
    if (kIgnored.find(c) != kIgnored.npos) continue;
    if (!IsSlash(c)) return true;
    if (++slashes == 2) return false;
  }
  return true;
}

AddressPlace PlaceBehind(std::string_view beginning) {
  std::string text(WithoutIgnoredStart(beginning));
  std::erase_if(text, [](char c) { return kIgnored.find(c) != kIgnored.npos; });
  if (text.empty()) return AddressPlace::kStart;
  const std::string_view address(text);
  const std::size_t stop = std::min(address.find_first_of(":/?#\\"), address.size());
  const bool has_scheme = stop < address.size() && address[stop] == ':';
  if (has_scheme) {
    const std::string_view scheme = address.substr(0, stop);
    if (scheme.find(kValueInAddress) != scheme.npos) return AddressPlace::kUnclear;
    if (!IsHarmlessScheme(scheme)) return AddressPlace::kRefused;
    return HasHost(scheme) && IsHostOpen(address.substr(stop + 1)) ? AddressPlace::kHost
                                                                   : AddressPlace::kLater;
  }
  if (stop == address.size()) return AddressPlace::kScheme;
  const bool has_host = address.size() >= 2 && IsSlash(address[0]) && IsSlash(address[1]);
  return has_host && IsHostOpen(address) ? AddressPlace::kHost : AddressPlace::kLater;
}

}  // namespace dralo::html
