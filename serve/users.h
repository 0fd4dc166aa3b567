#pragma once

#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace serve {

/// The users who may sign in, by basic authentication. Several threads may use it.
class Users {
 public:
  /// Reads lines "user:hash"; empty lines and those that begin with "#" are skipped. Throws
  /// std::runtime_error when the file cannot be read, has no users, or has a line of another form.
  explicit Users(const std::string& file);

  /// Whether the header Authorization names a user with the right password.
  bool Knows(std::string_view authorization) const;

 private:
  std::map<std::string, std::string, std::less<>> hashes_;
  mutable std::mutex mutex_;
  /// Passwords that were right before, by user: hashes are slow by design, and a page takes many requests.
  mutable std::map<std::string, std::string, std::less<>> passwords_;
};

}  // namespace serve
