#pragma once

#include <memory>

namespace dralo::platform {

/// What object creation by programmatic identifier returns, and what properties of type object hold.
class Object {
 public:
  virtual ~Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

 protected:
  Object() = default;
};

using ObjectPtr = std::shared_ptr<Object>;

}  // namespace dralo::platform

namespace dralo {

using platform::Object;
using platform::ObjectPtr;

}  // namespace dralo
