#pragma once

#include "platform/request.h"
#include "platform/response.h"

namespace dralo::platform {

/// What the host hands over at page start. Lives until page end.
class PageContext {
 public:
  virtual ~PageContext() = default;
  virtual const Request& GetRequest() const = 0;
  virtual Response& GetResponse() = 0;
};

}  // namespace dralo::platform
