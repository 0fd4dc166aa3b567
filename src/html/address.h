#pragma once

#include <string_view>

namespace dralo::html {

/// The address without the control characters and blanks at its start, which browsers ignore.
std::string_view WithoutIgnoredStart(std::string_view address);

/// Whether an address without ignored start has a scheme that runs nothing: http, https, mailto, tel or none.
/// Tabs and line breaks are ignored as in browsers; anything else before a colon counts as a scheme.
bool IsHarmlessAddress(std::string_view address);

/// Whether such an address has neither a scheme nor a host, so that it leads to this site.
bool IsOwnAddress(std::string_view address);

/// Marks a value in the text of an address that is still being read.
inline constexpr char kValueInAddress = '\x7F';

/// What a value means in an address, by what stands before it.
enum class AddressPlace {
  kStart,    ///< It begins the address.
  kScheme,   ///< It comes later, but a colon after it would make it part of the scheme.
  kHost,     ///< It is part of the host.
  kLater,    ///< It changes neither scheme nor host.
  kRefused,  ///< The address has a scheme that may run its text.
  kUnclear,  ///< A value is the scheme.
};

AddressPlace PlaceBehind(std::string_view beginning);

}  // namespace dralo::html
