#include "page_starts.h"

#include <utility>

namespace serve {

std::shared_ptr<const std::string> PageStarts::Find(const TableList& tables, const TableName& table,
                                                    const std::function<std::string()>& make) {
  const std::scoped_lock lock(mutex_);
  if (tables_ != tables) {
    starts_.clear();
    tables_ = tables;
  }
  std::shared_ptr<const std::string>& start = starts_[table];
  if (start == nullptr) start = std::make_shared<const std::string>(make());
  return start;
}

}  // namespace serve
