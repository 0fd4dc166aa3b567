#pragma once

#include <memory>

#include "dralo/request.h"
#include "dralo/response.h"

namespace dralo::platform {

/// What the component remembers of a page while its views are written one after the other.
class PageMemory {
 public:
  virtual ~PageMemory() = default;
};

/// What the host hands over at page start. Lives until page end, belongs to the thread of the page, and may
/// be shared by several views. A server with requests and responses of its own implements it; Page does it
/// for the others.
class PageContext {
 public:
  virtual ~PageContext() = default;

  /// @{
  /// Valid as long as the context.
  virtual const Request& GetRequest() const = 0;
  virtual Response& GetResponse() = 0;
  /// @}

  /// Whether Response::End() has ended the page although the host goes on: its views do nothing any more.
  virtual bool HasEnded() const { return false; }

  /// The component's own, none at first; hosts need not care.
  std::shared_ptr<PageMemory>& Memory() { return memory_; }

 private:
  std::shared_ptr<PageMemory> memory_;
};

}  // namespace dralo::platform

namespace dralo {

using platform::PageContext;

}  // namespace dralo
