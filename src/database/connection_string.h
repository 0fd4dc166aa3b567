#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::database {

/// For connection strings without Connect Timeout and Query Timeout.
inline constexpr int kDefaultConnectTimeoutS = 15;
inline constexpr int kDefaultQueryTimeoutS = 30;

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

  /// The value of `key` as a number from 0 to `most`; nothing without the key. Throws platform::Error, which
  /// names the unit, such as "seconds", and suggests a value, when it is no such number.
  std::optional<int> Number(std::string_view key, std::string_view unit, int most, int suggestion) const;

  /// The same for a number of seconds up to a day; `otherwise` without the key.
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

}  // namespace dralo::database
