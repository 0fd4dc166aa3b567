#include "database_watch.h"

#include <exception>
#include <utility>

namespace serve {
namespace {

bool AreSameFile(const struct stat& one, const struct stat& other) {
  return one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

struct stat StatusOf(const std::string& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) throw dralo::Error("The database file is away");
  return status;
}

}  // namespace

DatabaseWatch::DatabaseWatch(dralo::Environment& environment, const Options& options)
    : environment_(environment),
      file_(IsFile(options) ? options.database : ""),
      // Who looks has no time to wait for a writer: the page can be made without.
      connection_string_(ConnectionString(options) + ";Busy Timeout=0") {}

std::optional<Sighting> DatabaseWatch::Look() {
  if (file_.empty()) return std::nullopt;
  try {
    std::unique_ptr<Observer> observer = TakeObserver();
    const Sighting sighting = LookThrough(observer);
    const std::scoped_lock lock(mutex_);
    idle_.push_back(std::move(observer));
    return sighting;
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

/// nullptr when all are in use. The one that was used last knows the latest version.
std::unique_ptr<DatabaseWatch::Observer> DatabaseWatch::TakeObserver() {
  const std::scoped_lock lock(mutex_);
  if (idle_.empty()) return nullptr;
  std::unique_ptr<Observer> observer = std::move(idle_.back());
  idle_.pop_back();
  return observer;
}

/// Otherwise those that are not used again would keep a file that was deleted on the disk, and among the idle
/// connections may be one of a file that had the number of the new one on another device.
void DatabaseWatch::CloseAll() {
  {
    const std::scoped_lock lock(mutex_);
    idle_.clear();
  }
  dralo::Environment::CloseIdleConnections();
}

/// The time of a change is taken when it has been seen: what is begun at that time or later comes after it.
Sighting DatabaseWatch::LookThrough(std::unique_ptr<Observer>& observer) {
  const struct stat file = StatusOf(file_);
  if (observer != nullptr && !AreSameFile(file, observer->file)) {
    observer.reset();
    CloseAll();
  }
  if (observer == nullptr) {
    observer = std::make_unique<Observer>(Observer{Rows(environment_, connection_string_)});
    observer->file = StatusOf(file_);
    if (!AreSameFile(file, observer->file)) throw dralo::Error("Another file may have been opened");
  }
  std::string version = observer->rows.Query("PRAGMA data_version").at(0).at(0);
  if (version != observer->version) {
    observer->version = std::move(version);
    observer->unchanged_since = ++clock_;
  }
  return {clock_, observer->unchanged_since};
}

}  // namespace serve
