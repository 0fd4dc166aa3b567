#pragma once

#include <string>
#include <string_view>

namespace dralo::html {

/// What a browser does with the place in a template where a value goes.
enum class PlaceKind {
  kText,                 ///< Text of the page.
  kAttribute,            ///< In an attribute's value that is nothing but a text.
  kAddress,              ///< The start of an address.
  kRelativeAddress,      ///< The start of an address that forms post to.
  kAddressPart,          ///< Later in an address.
  kRelativeAddressPart,  ///< Later in an address that forms post to.
  kScriptString,         ///< Between the quotes of a script's string.
  kScriptValue,          ///< In a script, outside its strings.
  kStyle,                ///< In a style sheet or a style attribute.
  kNothing,              ///< Where no value is safe.
};

struct ValuePlace {
  PlaceKind kind = PlaceKind::kText;
  bool is_unquoted = false;     ///< In an attribute's value without quotes around it.
  bool is_whole_value = false;  ///< It is the whole value of that attribute.
};

/// Appends `value` as it must stand in the place, so that it can neither leave its place nor be run:
/// - text and attributes: see Escaped(); without quotes everything but letters, digits, ".", "_" and "-" as a
///   numeric reference, and an empty value as two quotes, because the next attribute would become the value;
/// - addresses: relative, or of http, https, mailto and tel, else "#"; those that forms post to relative
/// only;
/// - parts of addresses: percent-encoded but for unreserved characters and, unless forms post to it, "/";
/// - script strings: "\uXXXX" for all but ASCII letters and digits, which no quotes or references can end;
/// - script values: a JSON number as it is, else null;
/// - styles: the value if it consists of ASCII letters, digits, "#", ".", "%", "+" and "-", else nothing.
void AppendInPlace(std::string& to, std::string_view value, const ValuePlace& place);

/// The same for an address that the page itself has made, which may begin an address.
void AppendAddressInPlace(std::string& to, std::string_view address, const ValuePlace& place);

}  // namespace dralo::html
