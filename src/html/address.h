#pragma once

#include <string_view>

namespace dralo::html {

/// An address behind the control characters and blanks that browsers pass over in front of it.
std::string_view WithoutIgnoredStart(std::string_view address);

/// Whether an address, which has no ignored start, has a scheme that runs nothing: http, https, mailto, tel
/// or none. Tabs and line breaks are passed over as browsers do; whatever else stands before a colon counts
/// as a scheme.
bool IsHarmlessAddress(std::string_view address);

/// Whether it has neither a scheme nor a host, so that it leads to this site.
bool IsOwnAddress(std::string_view address);

/// Stands for a value in the text of an address whose end is not known yet.
inline constexpr char kValueInAddress = '\x7F';

/// What a value means in an address behind the beginning of it.
enum class AddressPlace {
  kStart,    ///< It begins the address.
  kScheme,   ///< It comes later, but a colon behind it would make it a part of the scheme.
  kHost,     ///< It is a part of the host.
  kLater,    ///< It changes neither scheme nor host.
  kRefused,  ///< The address has a scheme that may run its text.
  kUnclear,  ///< A value is the scheme.
};

AddressPlace PlaceBehind(std::string_view beginning);

}  // namespace dralo::html
