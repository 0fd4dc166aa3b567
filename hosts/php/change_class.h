#pragma once

#include <memory>

#include "dralo/change.h"
#include "hosts/php/classes.h"

namespace dralo::php {

/// A change as long as a function of the script has it. A script that keeps the object longer finds it over.
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
