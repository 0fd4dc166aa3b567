#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dralo::tests {

/// A text that a visitor types into a field, and what it means there.
struct Input {
  enum class Meaning { kValue, kNothing, kNoNumber, kNoDate, kRefused };

  std::optional<std::string> posted = std::nullopt;  ///< Without one the form has no input for the field.
  Meaning meaning = Meaning::kValue;
  std::string stored = "";  ///< The value as an SQL literal, or why the database refuses the text.
};

/// A form as it is posted, and the settings of the page that matter for it.
struct Post {
  enum class Button { kNone, kSave, kDelete };

  std::vector<Input> inputs;
  Button button = Button::kSave;
  bool is_insert = false;
  bool may_update = true;
  bool has_delete_statement = false;
  std::vector<bool> is_read_only;
  std::vector<bool> is_hidden;
  std::string new_key = "";  ///< "", "autoincrement" or "SELECT max(ID)+10 FROM T".
  bool has_brackets = false;
};

/// What a post leads to.
struct Outcome {
  bool result = true;
  std::string status = "";
  std::string message = "";

  std::string Text() const { return (result ? "true|" : "false|") + status + "|" + message; }
};

/// A table as a plain list of texts with the rules of saving, written down as simply as they are told: the
/// columns ID (a number, the key), Name (required), City (unique), Stock, Price, Since, Active and Notes.
class TableModel {
 public:
  static constexpr std::size_t kColumns = 8;
  static constexpr std::size_t kName = 1, kCity = 2, kActive = 6;
  static constexpr std::array<std::string_view, kColumns> kNames = {"ID",    "Name",  "City",   "Stock",
                                                                    "Price", "Since", "Active", "Notes"};
  using Row = std::array<std::string, kColumns>;  ///< SQL literals.

  /// Changes the table as the post does, or not.
  Outcome Apply(const Post& post);

  /// The rows in the order of their keys: fields separated by "|", rows by line breaks.
  std::string Dump() const;

  std::map<int, Row> rows;

 private:
  Outcome Delete(const Post& post);
  Outcome Save(const Post& post);
  std::optional<Outcome> Assign(const Post& post, std::size_t column, Row& row) const;
  std::optional<Outcome> AssignKey(const Post& post, Row& row) const;
  Outcome Write(const Row& row, const Row* old, bool is_insert);
  int MaxKey() const { return rows.empty() ? 0 : rows.rbegin()->first; }
};

}  // namespace dralo::tests
