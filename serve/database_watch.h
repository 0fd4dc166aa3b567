#pragma once

#include <sys/stat.h>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include <dralo/dralo.h>

#include "options.h"
#include "rows.h"

namespace serve {

/// What one look at the database has told. Times are numbers that grow with each change.
struct Sighting {
  std::uint64_t told_at = 0;
  /// At most `told_at` of an earlier look: since the end of that one nothing was committed, and the same file
  /// is there.
  std::uint64_t unchanged_since = 0;
  friend bool operator==(const Sighting&, const Sighting&) = default;
};

/// Tells whether an SQLite file has changed, whoever has written it. Several threads may use it.
class DatabaseWatch {
 public:
  /// The environment must outlive it. Opens nothing yet.
  DatabaseWatch(dralo::Environment& environment, const Options& options);

  /// Nothing when the database is no file of its own, or cannot tell now, such as while somebody writes.
  std::optional<Sighting> Look();

 private:
  /// A connection that stays open: an open file keeps its number, and a version of the database can be
  /// compared only with those that the same connection has told.
  struct Observer {
    Rows rows;
    struct stat file = {};
    std::string version = {};
    std::uint64_t unchanged_since = 0;
  };

  std::unique_ptr<Observer> TakeObserver();
  void CloseAll();
  Sighting LookThrough(std::unique_ptr<Observer>& observer);

  dralo::Environment& environment_;
  const std::string file_;  ///< Empty when the database is none.
  const std::string connection_string_;
  std::atomic<std::uint64_t> clock_ = 0;
  std::mutex mutex_;
  std::vector<std::unique_ptr<Observer>> idle_;
};

}  // namespace serve
