#pragma once

#include <span>
#include <string>
#include <string_view>

namespace dralo::platform {

/// One name with one value, decoded. A name that occurs several times is several fields.
struct RequestField {
  std::string name;
  std::string value;
};

/// The request of the current page. Names and values are any bytes.
class Request {
 public:
  virtual ~Request() = default;

  /// Fields of the posted form in the order of the post; fields with an empty name are left out.
  virtual std::span<const RequestField> Form() const = 0;

  /// Fields of the query string in their order; fields with an empty name are left out.
  virtual std::span<const RequestField> QueryString() const = 0;

  /// A variable of the server such as "SCRIPT_NAME"; empty when there is none.
  virtual std::string ServerVariable(std::string_view name) const = 0;
};

}  // namespace dralo::platform

namespace dralo {

using platform::Request;
using platform::RequestField;

}  // namespace dralo
