#pragma once

#include <string_view>

#include "dralo/error.h"

namespace dralo::platform {

/// The page being written, by the thread that renders. What its functions throw ends the rendering.
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

  /// Whether status and headers can still be set. A host that cannot tell says no, as by default.
  virtual bool HasUnsentHeaders() const { return false; }

  /// The status of the answer, such as 404; 200 until it is set. Throws Error when the headers were sent
  /// already, and by default.
  virtual void SetStatus(int /*status*/) { throw Error("The host sets no status"); }

  /// Answers with 303 and the address `location`, which is percent-encoded, instead of the page, and ends it
  /// as End() does. Throws Error when the headers were sent already.
  void Redirect(std::string_view location) {
    Clear();
    SetStatus(303);
    AddHeader("Location", location);
    End();
  }
};

}  // namespace dralo::platform

namespace dralo {

using platform::Response;

}  // namespace dralo
