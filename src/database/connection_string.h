#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::database {

/// A "key=value;" list. Keys are found in any letter case; of equal keys the last counts. Blanks around keys
/// and values are ignored. A value that contains ";", or begins or ends with blanks, stands in double quotes,
/// single quotes or braces; the closing one is doubled inside the value.
class ConnectionString {
 public:
  struct Pair {
    std::string key;
    std::string value;
    std::size_t start = 0;  ///< Of the pair's own text in the whole one, with blanks and the ";".
    std::size_t size = 0;   ///< Of that text; 0 for one that was added.
  };

  /// Throws platform::Error, without any part of the text, when a part has no "=" or a quote is not closed.
  explicit ConnectionString(std::string_view text);

  /// Adds a pair that wins over equal keys in the text. Adds nothing when `value` is empty.
  void Add(std::string_view key, std::string_view value);

  std::optional<std::string_view> Find(std::string_view key) const;

  /// ReadSeconds() of the value of `key`; `otherwise` without the key.
  int Seconds(std::string_view key, int otherwise) const;

  /// A copy whose keys have their usual names, such as "User ID" for "UID". Throws platform::Error when a
  /// value has a zero byte, or a key is none of `known`, "Host, Port" and the like in their usual names, nor
  /// "Provider". The message names `provider`, but not the key: it may be part of a password that has ";".
  ConnectionString WithUsualKeys(std::string_view provider, std::string_view known) const;

  /// A text that only connection strings with equal pairs in equal order share.
  std::string Identity() const;

  /// In the order of the text, followed by the added ones.
  const std::vector<Pair>& Pairs() const { return pairs_; }

  /// The original text, without the pairs that hold a password.
  std::string WithoutPassword() const;

 private:
  std::string text_;
  std::vector<Pair> pairs_;
};

/// The value of `key` as a number of seconds up to a day. Throws platform::Error, which suggests
/// `suggestion`, when it is no such number.
int ReadSeconds(std::string_view key, std::string_view value, int suggestion);

}  // namespace dralo::database
