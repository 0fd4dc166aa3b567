#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "answer.h"
#include "catalogue.h"
#include "database_watch.h"

namespace serve {

/// Pages that can be sent again while nothing has changed that they show. Several threads may use it.
class KeptPages {
 public:
  static constexpr std::size_t kMostPages = 100;
  static constexpr std::size_t kMostBytes = std::size_t{8} << 20;  ///< Of all pages together.
  static constexpr std::size_t kLongestPage = std::size_t{256} << 10;
  static constexpr std::size_t kMostAsked = 1000;

  /// Whether the same was asked before, beside the same list of tables. What nobody asks for twice is not
  /// worth a look at the database, nor the copy.
  bool IsAskedAgain(const TableList& tables, const std::string& request);

  /// The page for the same request, all of it that pages depend on; nullptr when none was kept since the
  /// latest change of the database, and beside the same list of tables.
  std::shared_ptr<const Answer> Find(const TableList& tables, const Sighting& now,
                                     const std::string& request);

  /// Keeps a copy of a page that was begun after the list of tables was read and after the look `before`.
  /// When there is no room for it, the others are dropped.
  void Keep(const TableList& tables, const Sighting& before, const std::string& request, const Answer& page);

 private:
  struct Kept {
    std::uint64_t begun_at;  ///< Or later.
    std::shared_ptr<const Answer> page;
  };

  void RequireList(const TableList& tables);
  void DropPages();

  std::mutex mutex_;
  TableList tables_;  ///< Those that all pages are beside. While it is held, no other list has its address.
  std::unordered_map<std::string, Kept> pages_;
  std::size_t bytes_ = 0;
  std::unordered_set<std::size_t> asked_;  ///< The hashes of requests.
};

}  // namespace serve
