#pragma once

#include <atomic>
#include <chrono>
#include <list>

namespace dralo::database::odbc {

/// How long a server may take while this object lives; after that its connection is ended. A driver without a
/// limit of its own would wait for ever for a server that neither answers nor goes away.
class Deadline {
 public:
  /// Sets `has_passed` when it ends the connection of `socket`. Both must outlive this object. There is no
  /// deadline when the process can have no thread for it.
  Deadline(int socket, std::chrono::seconds limit, std::atomic<bool>& has_passed);

  /// None.
  Deadline() = default;

  ~Deadline();
  Deadline(const Deadline&) = delete;
  Deadline& operator=(const Deadline&) = delete;

 private:
  friend class Watchdog;

  struct Watched {
    std::chrono::steady_clock::time_point due;
    int socket = -1;
    std::atomic<bool>* has_passed = nullptr;
  };

  std::list<Watched>::iterator watched_;
  bool is_set_ = false;
};

}  // namespace dralo::database::odbc
