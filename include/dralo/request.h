#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::platform {

/// One name with one value, decoded. A name that occurs several times is several fields.
struct RequestField {
  std::string name;   ///< As it was sent, never empty.
  std::string value;  ///< Empty when none was sent.
};

/// The request of the current page. Names and values are any bytes. Unchanged while a view is rendered, whose
/// thread alone calls it; what the functions point to lives as long as the request.
class Request {
 public:
  virtual ~Request() = default;

  /// Fields of the posted form in the order of the post; fields with an empty name are left out.
  virtual std::span<const RequestField> Form() const = 0;

  /// Fields of the query string in their order; fields with an empty name are left out.
  virtual std::span<const RequestField> QueryString() const = 0;

  /// A variable of the server such as "SCRIPT_NAME"; empty when there is none.
  virtual std::string ServerVariable(std::string_view name) const = 0;

  /// "GET" or "POST" and so on, in capitals; empty when the host does not tell, as by default.
  virtual std::string Method() const { return {}; }

  /// The values of the header `name`, such as "Sec-Fetch-Site", in any letter case: one for each time that it
  /// came, so that two cannot pass for one. A server may have joined them by ", " already. None when it is
  /// missing, and by default.
  virtual std::vector<std::string> HeaderValues(std::string_view /*name*/) const { return {}; }
};

}  // namespace dralo::platform

namespace dralo {

using platform::Request;
using platform::RequestField;

}  // namespace dralo
