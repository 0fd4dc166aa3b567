#pragma once

#include <map>
#include <ostream>
#include <string>

#include "record/rendered_page.h"

namespace dralo::record {

/// How many pages showed what, so that it can be seen that all parts of the product are reached.
class Statistics {
 public:
  void Count(const RenderedPage& page);
  void Print(std::ostream& out) const;

 private:
  std::map<std::string, std::uint64_t> counts_;
};

}  // namespace dralo::record
