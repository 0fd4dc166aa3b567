#pragma once

#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace serve {

/// Who may come, by basic authentication. Several threads may use it.
class Users {
 public:
  /// Reads lines "user:hash"; empty ones and those that begin with "#" do not count. Throws
  /// std::runtime_error when the file cannot be read, has no line, or has one that is none.
  explicit Users(const std::string& file);

  /// Whether the header Authorization names one of them with the right password.
  bool Knows(std::string_view authorization) const;

 private:
  std::map<std::string, std::string, std::less<>> hashes_;
  mutable std::mutex mutex_;
  /// What was right before, by user: hashes are slow by design, and a page is many requests.
  mutable std::map<std::string, std::string, std::less<>> passwords_;
};

}  // namespace serve
