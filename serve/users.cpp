#include "users.h"

#include <crypt.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>

#include "text.h"

namespace serve {
namespace {

/// Takes the same time wherever the texts differ.
bool AreEqual(std::string_view one, std::string_view other) {
  unsigned difference = one.size() == other.size() ? 0 : 1;
  for (std::size_t i = 0; i < one.size(); ++i) {
    difference |= static_cast<unsigned char>(one[i]) ^
                  (other.empty() ? 0U : static_cast<unsigned char>(other[i % other.size()]));
  }
  return difference == 0;
}

/// The hash of the password made as `setting` says. Empty when crypt(3) does not know the method, or it is
/// the oldest one, for which every text is a setting.
std::string Hash(const std::string& password, const std::string& setting) {
  if (!setting.starts_with('$')) return {};
  const auto data = std::make_unique<crypt_data>();
  const char* const hash = crypt_r(password.c_str(), setting.c_str(), data.get());
  return hash == nullptr || *hash == '*' ? std::string() : hash;
}

constexpr std::string_view kDigits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::optional<std::string> ReadBase64(std::string_view text) {
  while (text.ends_with('=')) text.remove_suffix(1);
  std::string read;
  unsigned bits = 0;
  int count = 0;
  for (const char c : text) {
    const std::size_t digit = kDigits.find(c);
    if (digit == kDigits.npos) return std::nullopt;
    bits = (bits << 6U) | static_cast<unsigned>(digit);
    count += 6;
    if (count < 8) continue;
    count -= 8;
    read += static_cast<char>(bits >> static_cast<unsigned>(count));
  }
  return read;
}

/// "user:password" from the header; nothing when the header is of another kind.
std::optional<std::string> Credentials(std::string_view authorization) {
  constexpr std::string_view kKind = "basic ";
  if (Lower(authorization.substr(0, kKind.size())) != kKind) return std::nullopt;
  auto read = ReadBase64(authorization.substr(kKind.size()));
  if (!read || read->find(':') == read->npos || read->find('\0') != read->npos) return std::nullopt;
  return read;
}

}  // namespace

Users::Users(const std::string& file) {
  std::ifstream lines(file);
  if (!lines) throw std::runtime_error("the user file " + file + " cannot be read: " + std::strerror(errno));
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.empty() || line.starts_with('#')) continue;
    const std::size_t colon = line.find(':');
    const std::string hash = colon == line.npos ? "" : line.substr(colon + 1);
    if (colon == 0 || hash.empty() || Hash("", hash).empty()) {
      throw std::runtime_error("line " + std::to_string(number) + " of the user file " + file +
                               " is no user with a hash that crypt knows; make it with htpasswd -B");
    }
    hashes_[line.substr(0, colon)] = hash;
  }
  if (hashes_.empty())
    throw std::runtime_error("the user file " + file + " names nobody; add a user with htpasswd -B");
}

bool Users::Knows(std::string_view authorization) const {
  const auto given = Credentials(authorization);
  if (!given) return false;
  const std::string user = given->substr(0, given->find(':'));
  const std::string password = given->substr(user.size() + 1);
  {
    const std::scoped_lock lock(mutex_);
    const auto known = passwords_.find(user);
    if (known != passwords_.end() && AreEqual(password, known->second)) return true;
  }
  const auto found = hashes_.find(user);
  // An unknown name takes the same time as a wrong password.
  const std::string& hash = found == hashes_.end() ? hashes_.begin()->second : found->second;
  const bool is_right = AreEqual(Hash(password, hash), hash) && found != hashes_.end();
  if (is_right) {
    const std::scoped_lock lock(mutex_);
    passwords_[user] = password;
  }
  return is_right;
}

}  // namespace serve
