#include "unit/editing/table_model.h"

#include <algorithm>

namespace dralo::tests {

namespace {

using Meaning = Input::Meaning;

const Outcome kFillOut{false, "&nbsp;Record WAS NOT SAVED. Fill out all required fields.", ""};

Outcome InUpdateRecord(const std::string& description) {
  return {false, "", description + " in UpdateRecord.<br>"};
}

std::string Trimmed(std::string text) {
  text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string Typed(const Input& input) { return input.posted.value_or(""); }

/// Why the database does not take the key input for a number in a statement.
std::optional<std::string> KeyError(const Input& key) {
  const std::string typed = Trimmed(Typed(key));
  if (typed.empty()) return "near \")\": syntax error";
  if (key.meaning != Meaning::kValue) return "no such column: " + typed;
  return std::nullopt;
}

}  // namespace

Outcome TableModel::Apply(const Post& post) {
  if (post.button == Post::Button::kNone || !post.may_update) return {};
  return post.button == Post::Button::kDelete && post.has_delete_statement ? Delete(post) : Save(post);
}

Outcome TableModel::Delete(const Post& post) {
  const Input& key = post.inputs[0];
  if (const auto error = KeyError(key)) return {false, "Delete failed: " + *error + "<br>", ""};
  const bool was_there = rows.erase(std::stoi(key.stored)) > 0;
  return {true, "&nbsp;[Record deleted]",
          was_there ? "" : "There is no record with the posted key in UpdateRecord.<br>"};
}

Outcome TableModel::Save(const Post& post) {
  Row row;
  row.fill("NULL");
  const Row* old = nullptr;
  if (!post.is_insert) {
    const Input& key = post.inputs[0];
    if (const auto error = KeyError(key)) {
      const std::string name = post.has_brackets ? "[ID]" : "ID";
      return {false, "",
              "Unable to open recordset. sql='SELECT * FROM T WHERE (" + name + "=" + Trimmed(Typed(key)) +
                  ")' " + *error + "<br>"};
    }
    const auto found = rows.find(std::stoi(key.stored));
    if (found == rows.end()) return InUpdateRecord("There is no record with the posted key");
    old = &found->second;
    row = *old;
  }
  for (std::size_t column = 0; column < kColumns; ++column) {
    if (const auto failure = Assign(post, column, row)) return *failure;
  }
  return Write(row, old, post.is_insert);
}

std::optional<Outcome> TableModel::AssignKey(const Post& post, Row& row) const {
  if (post.new_key == "autoincrement") {
    row[0] = std::to_string(MaxKey() + 1);
    return std::nullopt;
  }
  if (rows.empty()) {  // The highest key of no rows is Null.
    Outcome failure = kFillOut;
    failure.message = "The statement for a new key yields no value in GetNewPKValue.<br>";
    return failure;
  }
  row[0] = std::to_string(MaxKey() + 10);
  return std::nullopt;
}

std::optional<Outcome> TableModel::Assign(const Post& post, std::size_t column, Row& row) const {
  if (column == 0 && post.is_insert && !post.new_key.empty()) return AssignKey(post, row);
  const Input& input = post.inputs[column];
  if (post.is_read_only[column] || (post.is_hidden[column] && !input.posted)) return std::nullopt;
  if (column == kActive) {
    const bool is_ticked = !Typed(input).empty();
    const bool is_untouched = !post.is_insert && row[column] != "NULL" && (row[column] == "1") == is_ticked;
    if (!is_untouched) row[column] = is_ticked ? "1" : "0";
    return std::nullopt;
  }
  switch (input.meaning) {
    case Meaning::kNothing:
      if (!post.is_insert && row[column] == "' '") return std::nullopt;  // Shown as nothing, so untouched.
      if (column <= kName) return kFillOut;
      row[column] = "NULL";
      return std::nullopt;
    case Meaning::kNoNumber:
      return Outcome{false, "&nbsp;" + Typed(input) + " is not a number", ""};
    case Meaning::kNoDate:
      return Outcome{false, "&nbsp;" + Typed(input) + " is not a valid date", ""};
    case Meaning::kRefused:
      return InUpdateRecord("The value for the field " + std::string(kNames[column]) + " " + input.stored);
    case Meaning::kValue:
      row[column] = input.stored;
  }
  return std::nullopt;
}

Outcome TableModel::Write(const Row& row, const Row* old, bool is_insert) {
  const auto fails = [](std::string_view constraint) {
    return Outcome{false, "", "Update failed: " + std::string(constraint) + "<br>"};
  };
  Row written = row;
  // A key that was neither posted nor generated comes from the database.
  if (written[0] == "NULL") written[0] = std::to_string(MaxKey() + 1);
  const int key = std::stoi(written[0]);
  if (written[kName] == "NULL") return fails("NOT NULL constraint failed: T.Name");
  if (is_insert && rows.contains(key)) return fails("UNIQUE constraint failed: T.ID");
  for (const auto& [other_key, other] : rows) {
    if (&other != old && other[kCity] != "NULL" && other[kCity] == written[kCity]) {
      return fails("UNIQUE constraint failed: T.City");
    }
  }
  rows[key] = written;
  return {true, is_insert ? "&nbsp;[New record saved ok]" : "&nbsp;[Record saved ok]", ""};
}

std::string TableModel::Dump() const {
  std::string dump;
  for (const auto& [key, row] : rows) {
    for (const std::string& field : row) dump += field + "|";
    dump += "\n";
  }
  return dump;
}

}  // namespace dralo::tests
