#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "catalogue.h"

namespace serve {

/// The beginnings of the pages of tables, which change only with the list of tables. Several threads may use
/// it.
class PageStarts {
 public:
  /// That of the page of `table` beside the list `tables`; `make` is called when it is not known yet.
  std::shared_ptr<const std::string> Find(const TableList& tables, const TableName& table,
                                          const std::function<std::string()>& make);

 private:
  std::mutex mutex_;
  TableList tables_;  ///< Those that `starts_` are beside.
  std::map<TableName, std::shared_ptr<const std::string>> starts_;
};

}  // namespace serve
