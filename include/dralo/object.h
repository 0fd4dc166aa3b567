#pragma once

#include <memory>

namespace dralo::platform {

/// What object creation by programmatic identifier returns, and what properties of type object hold. Shared
/// by std::shared_ptr; objects are not copied.
class Object {
 public:
  virtual ~Object() = default;
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

 protected:
  Object() = default;
};

/// None is a null pointer.
using ObjectPtr = std::shared_ptr<Object>;

}  // namespace dralo::platform

namespace dralo {

using platform::Object;
using platform::ObjectPtr;

}  // namespace dralo
