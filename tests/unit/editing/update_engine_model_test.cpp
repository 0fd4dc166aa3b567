#include <gtest/gtest.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "unit/editing/saving.h"
#include "unit/editing/table_model.h"

namespace dralo::tests {

namespace {

using Meaning = Input::Meaning;

constexpr std::string_view kModelTable =
    "PRAGMA journal_mode=WAL;"
    "CREATE TABLE T(ID INTEGER PRIMARY KEY, Name VARCHAR(10) NOT NULL, City VARCHAR(10) UNIQUE, Stock INT,"
    "  Price DECIMAL(10,2), Since DATE, Active BOOLEAN, Notes TEXT);";

Input Value(std::string posted, std::string stored) {
  return {std::move(posted), Meaning::kValue, std::move(stored)};
}
Input Nothing(std::string posted) { return {std::move(posted), Meaning::kNothing}; }
Input NoNumber(std::string posted) { return {std::move(posted), Meaning::kNoNumber}; }
Input NoDate(std::string posted) { return {std::move(posted), Meaning::kNoDate}; }
Input Refused(std::string posted, std::string reason) {
  return {std::move(posted), Meaning::kRefused, std::move(reason)};
}

/// What visitors type into each field; most of it can be saved. Letters of unquoted keys are names of no
/// column.
const std::vector<std::vector<Input>>& Samples() {
  static const std::vector<std::vector<Input>> samples = {
      {Value("1", "1"), Value("2", "2"), Value("3", "3"), Value(" 4 ", "4"), Value("5", "5"),
       Value("77", "77"), NoNumber("x"), Nothing("")},
      {Value("Anna", "'Anna'"), Value("O'Neil", "'O''Neil'"), Value(" ", "' '"), Value("[b]", "'[b]'"),
       Value("Ærø", "'Ærø'"), Nothing(""), Refused("Much too long", "is longer than 10 characters")},
      {Nothing(""), Value("Oslo", "'Oslo'"), Nothing(""), Value("oslo", "'oslo'"), Value("Bonn", "'Bonn'"),
       Value("Rome", "'Rome'")},
      {Value("7", "7"), Value("-12", "-12"), Value("1,234", "1234"), Nothing(""), NoNumber("3,5"),
       NoNumber("seven"), Refused("3.5", "is not a whole number")},
      {Value("3,5", "3.5"), Value("2.50", "2.5"), Value("-,25", "-0.25"), Nothing(""), NoNumber("1,234.5"),
       NoNumber("$5")},
      {Value("5/3/2024", "'2024-05-03'"), Value("2024-12-31", "'2024-12-31'"), Nothing("0"), Nothing(""),
       NoDate("soon"), NoDate("2/30/2024")},
      {Value("on", "1"), Value("0", "1"), Nothing("")},
      {Value("a\r\nb", "'a\r\nb'"), Value("\t<b>&amp;\"", "'\t<b>&amp;\"'"), Value(" 🍵", "' 🍵'"),
       Nothing("")},
  };
  return samples;
}

/// The settings of a page, in words and as the model has them.
struct Page {
  std::string edit_options;
  std::string read_only;
  std::string hidden;
  std::string shown;
};

class Visitors {
 public:
  explicit Visitors(unsigned seed) : random_(seed) {}

  /// Makes up a page and what a visitor posts to it.
  void Next() {
    page = {Pick<std::string>({"UPDATE", "UPDATE", "UPDATE", "ADD UPDATE DELETE", "all", "NOVIEW UPDATE",
                               "update", "ADD DELETE"}),
            Pick<std::string>({"", "", "", "City", "3", " * ", "ID", "Name,0"}),
            Pick<std::string>({"", "", "Notes,4", "Name"}),
            Pick<std::string>({"", "", "ID,Name,City", "1,2,7"})};
    post = {};
    post.button = Pick<Post::Button>({Post::Button::kSave, Post::Button::kSave, Post::Button::kSave,
                                      Post::Button::kSave, Post::Button::kDelete, Post::Button::kNone});
    post.is_insert = Chance(3);
    post.has_delete_statement = Chance(2);
    post.new_key = Pick<std::string>({"", "autoincrement", "SELECT max(ID)+10 FROM T"});
    post.may_update = page.edit_options.find("UPDATE") != std::string::npos || page.edit_options == "all";
    for (std::size_t column = 0; column < TableModel::kColumns; ++column) {
      post.inputs.push_back(NextInput(column));
      post.is_read_only.push_back(IsReadOnly(column));
      post.is_hidden.push_back(IsHidden(column));
    }
  }

  Page page;
  Post post;

 private:
  template <class T>
  T Pick(std::initializer_list<T> choices) {
    return choices.begin()[random_() % choices.size()];
  }

  bool Chance(unsigned one_in) { return random_() % one_in == 0; }

  Input NextInput(std::size_t column) {
    // Browsers post nothing for boxes that are not ticked.
    if (Chance(column == TableModel::kActive ? 2 : 25)) return {std::nullopt, Meaning::kNothing};
    const auto& samples = Samples()[column];
    // The first ones can be saved: most posts should get that far.
    return samples[random_() % (Chance(9) ? samples.size() : 3)];
  }

  bool IsReadOnly(std::size_t column) const {
    const std::string& list = page.read_only;
    if (list == " * ") return true;
    return (column == 0 && (list == "ID" || list == "Name,0")) || (column == 1 && list == "Name,0") ||
           (column == 2 && list == "City") || (column == 3 && list == "3");
  }

  /// Fields that are not shown are named, or numbered from 1; a list of hidden ones makes the other one void.
  bool IsHidden(std::size_t column) const {
    if (page.hidden == "Notes,4") return column == 7 || column == 3;
    if (page.hidden == "Name") return column == 1;
    if (page.shown == "ID,Name,City") return column > 2;
    if (page.shown == "1,2,7") return column != 0 && column != 1 && column != 6;
    return false;
  }

  std::mt19937 random_;
};

Outcome Send(const TemporaryDatabase& database, const Page& page, const Post& post, bool use_css) {
  Saving saving(database);
  settings::SetEditOptions(saving.settings, page.edit_options);
  saving.settings.EditFieldsReadOnly = page.read_only;
  saving.settings.FormFieldsHide = page.hidden;
  saving.settings.FormFieldsShow = page.shown;
  saving.settings.EditNewPKStatement = post.new_key;
  saving.settings.UseCSS = use_css;
  if (post.has_delete_statement) saving.settings.DeleteSQL = "DELETE FROM T";
  if (post.has_brackets) saving.settings.DrConnection->SetEngineName("MSSQL");
  for (std::size_t column = 0; column < TableModel::kColumns; ++column) {
    if (post.inputs[column].posted) saving.Post(TableModel::kNames[column], *post.inputs[column].posted);
  }
  if (post.is_insert) saving.page.form.push_back({"Morvu1FormInsert", "1"});
  const bool result = post.button == Post::Button::kSave     ? saving.Save()
                      : post.button == Post::Button::kDelete ? saving.Delete()
                                                             : saving.Update();
  return {result, saving.Status(), saving.Message()};
}

std::string Describe(const Page& page, const Post& post) {
  std::string text = "options '" + page.edit_options + "' read-only '" + page.read_only + "' hidden '" +
                     page.hidden + "' shown '" + page.shown + "' new key '" + post.new_key + "' insert " +
                     std::to_string(post.is_insert) + " button " +
                     std::to_string(static_cast<int>(post.button)) + " delete " +
                     std::to_string(post.has_delete_statement) + " posted";
  for (const Input& input : post.inputs) text += " {" + input.posted.value_or("-") + "}";
  return text;
}

std::string Dump(const TemporaryDatabase& database) {
  std::string row;
  for (const std::string_view name : TableModel::kNames) row.append("quote(").append(name).append(")||'|'||");
  return database.Value("SELECT coalesce(group_concat(" + row +
                        "char(10), ''), '') FROM (SELECT * FROM T ORDER BY ID)");
}

struct Variant {
  unsigned seed;
  bool has_brackets;
  bool use_css;
};

class RandomPosts : public testing::TestWithParam<Variant> {};

TEST_P(RandomPosts, DoWhatAPlainModelOfTheTableDoes) {
  const TemporaryDatabase database(kModelTable);
  TableModel model;
  Visitors visitors(GetParam().seed);
  int saved = 0;
  for (int count = 0; count < 700; ++count) {
    visitors.Next();
    visitors.post.has_brackets = GetParam().has_brackets;
    const Outcome expected = model.Apply(visitors.post);
    const Outcome outcome = Send(database, visitors.page, visitors.post, GetParam().use_css);
    ASSERT_EQ(outcome.Text(), expected.Text())
        << "post " << count << ": " << Describe(visitors.page, visitors.post);
    ASSERT_EQ(Dump(database), model.Dump())
        << "post " << count << ": " << Describe(visitors.page, visitors.post);
    saved += outcome.result && !outcome.status.empty();
  }
  EXPECT_GT(saved, 100) << "too few posts change the table to prove something";
}

INSTANTIATE_TEST_SUITE_P(Pages, RandomPosts,
                         testing::Values(Variant{1, false, true}, Variant{2, true, true},
                                         Variant{3, false, false}, Variant{4, true, false}),
                         [](const auto& variant) {
                           return std::string(variant.param.has_brackets ? "WithBrackets"
                                                                         : "WithoutBrackets") +
                                  (variant.param.use_css ? "" : "AndWithoutCSS");
                         });

}  // namespace

}  // namespace dralo::tests
