#pragma once

#include <memory>

#include "dralo/change.h"
#include "hosts/php/classes.h"

namespace dralo::php {

/// A change that is lent to a function of the script for one call. A script that keeps the object longer gets
/// an error from it.
class LentChange {
 public:
  /// `change` must outlive the object.
  explicit LentChange(platform::Change& change);
  ~LentChange();
  LentChange(const LentChange&) = delete;
  LentChange& operator=(const LentChange&) = delete;

  /// A new Dralo\Change. Must run inside CallPhp().
  zend_object* NewScriptObject() const;

 private:
  class Reference;
  friend struct ChangeMembers;

  std::shared_ptr<Reference> reference_;
};

}  // namespace dralo::php
