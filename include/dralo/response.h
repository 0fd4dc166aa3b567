#pragma once

#include <string_view>

namespace dralo::platform {

/// The page being written.
class Response {
 public:
  virtual ~Response() = default;

  /// Appends bytes to the page. Every call reaches the host: callers collect.
  virtual void Write(std::string_view html) = 0;

  /// Drops what the page has written so far. Throws Error when some of it was sent already.
  virtual void Clear() = 0;

  /// Throws Error when the headers were sent already.
  virtual void SetContentType(std::string_view type) = 0;

  /// Throws Error when the headers were sent already.
  virtual void AddHeader(std::string_view name, std::string_view value) = 0;

  /// Ends the page: nothing that the page writes afterwards is sent. A host that ends the page script does so
  /// by an exception that callers let pass.
  virtual void End() = 0;
};

}  // namespace dralo::platform

namespace dralo {

using platform::Response;

}  // namespace dralo
