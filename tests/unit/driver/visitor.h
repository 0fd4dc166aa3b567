#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "component/db_connection.h"
#include "support/grid_model.h"
#include "support/shown_view.h"
#include "support/view_page.h"

namespace dralo::driver {

using tests::GridModel;
using tests::ShownView;
using Fields = ShownView::Fields;
using Control = ShownView::Control;

inline constexpr char kItems[] = "SELECT ID, City, Amount, Note FROM Items";

/// A page script that differs from the plain one.
struct Variant {
  const char* name;
  tests::Script script = {};
  void (*configure)(component::DbView& view) = [](component::DbView&) {};  ///< What the script cannot say.
  GridModel::Rules rules = {};
  std::size_t bars = 1;
  bool has_ends = true;  ///< Buttons for the first and the last page.
  std::vector<std::string> tags = {"1"};
  Fields own_fields = {};  ///< What the page itself was asked for at first, and must be asked for ever after.
  bool posts_statement = false;  ///< The page sets it at first only; later it comes from the request.
};

/// Few cities and amounts, so that most rows have their like.
inline std::vector<GridModel::Row> Rows(int count) {
  static const char* const kCities[] = {"Oslo", "Bergen", "bergen", "Ås", ""};
  std::vector<GridModel::Row> rows;
  for (int id = 1; id <= count; ++id) {
    rows.push_back({.id = id, .city = kCities[id * 7 % 5], .amount = std::nullopt});
    if (id % 4 != 0) rows.back().amount = id * 13 % 11 - 5;
  }
  return rows;
}

inline std::string AmountText(const GridModel::Row& row, const char* null) {
  return row.amount ? std::to_string(*row.amount) : null;
}

inline std::string TableOf(const std::vector<GridModel::Row>& rows) {
  std::string statements =
      "CREATE TABLE Items(ID INTEGER PRIMARY KEY, City VARCHAR(20), Amount INTEGER, Note TEXT); BEGIN;";
  for (const GridModel::Row& row : rows) {
    statements += "INSERT INTO Items VALUES(" + std::to_string(row.id) + ",'" + row.city + "'," +
                  AmountText(row, "NULL") + ",'-');";
  }
  return statements + "COMMIT";
}

/// The cells of a row as the page must show them behind its number.
inline std::vector<std::string> CellsOf(const GridModel::Row& row, int number) {
  return {std::to_string(number), std::to_string(row.id), row.city.empty() ? "&nbsp;" : row.city,
          AmountText(row, "&nbsp;"), "-"};
}

/// A visitor who only uses what the page shows, and who knows what must be there.
class Visitor {
 public:
  Visitor(const Variant& variant, int rows)
      : variant_(variant),
        database_(TableOf(Rows(rows))),
        models_(variant.tags.size(), GridModel(Rows(rows), variant.rules)) {
    connection_->Connection()->Open(database_.ConnectionString());
    Ask(variant.own_fields, {});
  }

  void Click(std::mt19937& random) {
    const std::size_t view = random() % shown_.size();
    const std::vector<std::string> kinds = Offered(shown_[view]);
    ASSERT_FALSE(kinds.empty());
    last_click_ = kinds[random() % kinds.size()];
    if (last_click_ == "sort") {
      Sort(view, 1 + static_cast<int>(random() % 3));
    } else if (last_click_ == "sort again") {
      Sort(view, models_[view].SortedBy());
    } else if (last_click_ == "size") {
      Resize(view, random());
    } else {
      Press(view, random());
    }
  }

  void Check() const {
    SCOPED_TRACE("after " + last_click_);
    for (std::size_t view = 0; view < shown_.size(); ++view) {
      SCOPED_TRACE("tag " + variant_.tags[view]);
      CheckRows(shown_[view], models_[view]);
      CheckBars(shown_[view], models_[view]);
      CheckColumns(shown_[view], models_[view]);
      CheckSelect(shown_[view], models_[view]);
      EXPECT_EQ(numbers_[view], std::pair(models_[view].FromRow(), models_[view].ToRow()));
    }
    CheckOwnFields();
  }

 private:
  void Ask(Fields query, Fields form) {
    tests::FakePage page;
    page.query = std::move(query);
    page.form = std::move(form);
    request_ = page.query;
    request_.insert(request_.end(), page.form.begin(), page.form.end());
    shown_.clear();
    numbers_.clear();
    for (const std::string& tag : variant_.tags) {
      component::DbView view(tests::TestEnvironment());
      view.OnStartPage(page);
      view.Set("Tag", tag);
      view.Set("DrConnection", platform::ObjectPtr(connection_));
      if (!variant_.posts_statement || request_.empty()) view.Set("sql", std::string(kItems));
      view.Set("DisplayRecordsPerPageSelect", true);
      view.Set("RecordsPerPageOptions", std::string("3,10,20,50"));
      for (const tests::Setting& setting : variant_.script) view.Set(setting.property, setting.value);
      variant_.configure(view);
      view.WriteHtmlTable();
      const settings::Settings& settings = view.GetSettings();
      EXPECT_EQ(settings.ErrorMessage, "");
      numbers_.emplace_back(settings.FromRow, settings.ToRow);
      view.OnEndPage();
    }
    for (const std::string& tag : variant_.tags) shown_.push_back(tests::ReadView(page.body, tag));
  }

  static std::string Button(const Control& control) {
    return control.name.substr(std::string_view("Morvu1").size());
  }

  /// The kinds of clicks that the view offers now.
  std::vector<std::string> Offered(const ShownView& shown) const {
    std::set<std::string> kinds;
    for (const Control& control : shown.controls) {
      if (control.kind == Control::Kind::kSelect) kinds.insert("size");
      if (control.kind == Control::Kind::kImage && Button(control) != "ToExcel")
        kinds.insert(Button(control));
    }
    for (const ShownView::Column& column : shown.columns) {
      if (!column.link.empty()) kinds.insert("sort");
      if (!column.arrow.empty()) kinds.insert("sort again");
    }
    return {kinds.begin(), kinds.end()};
  }

  /// The controls with which the view offers the last click.
  std::vector<const Control*> Controls(const ShownView& shown) const {
    std::vector<const Control*> controls;
    for (const Control& control : shown.controls) {
      const bool is_select = control.kind == Control::Kind::kSelect;
      if (last_click_ == "size" ? is_select
                                : control.kind == Control::Kind::kImage && Button(control) == last_click_) {
        controls.push_back(&control);
      }
    }
    return controls;
  }

  void Sort(std::size_t view, int column) {
    models_[view].Sort(column);
    Ask(tests::QueryOf(shown_[view].columns.at(static_cast<std::size_t>(column)).link), {});
  }

  void Resize(std::size_t view, std::size_t choice) {
    const Control& select = *Controls(shown_[view]).at(0);
    const std::string option = select.options.at(choice % select.options.size());
    models_[view].Resize(std::stoi(option));
    Ask({}, shown_[view].Choose(select, option));
  }

  void Press(std::size_t view, std::size_t choice) {
    GridModel& model = models_[view];
    if (last_click_ == "NEXT") {
      model.Next();
    } else if (last_click_ == "PREV") {
      model.Previous();
    } else if (last_click_ == "FIRST") {
      model.First();
    } else if (last_click_ == "LAST") {
      model.Last();
    } else {
      FAIL() << "unknown button " << last_click_;
    }
    const auto buttons = Controls(shown_[view]);
    Ask({}, shown_[view].Press(*buttons.at(choice % buttons.size())));
  }

  static void CheckRows(const ShownView& shown, const GridModel& model) {
    std::vector<std::vector<std::string>> expected;
    int number = model.FromRow();
    for (const GridModel::Row& row : model.Page()) expected.push_back(CellsOf(row, number++));
    EXPECT_EQ(shown.rows, expected);
  }

  void CheckBars(const ShownView& shown, const GridModel& model) const {
    const auto image = [](const char* name, bool works) {
      return name + std::string(works ? ".gif" : "d.gif");
    };
    std::vector<std::string> images = {image("prevpg", model.GoesBack()), image("nextpg", model.GoesOn())};
    if (variant_.has_ends) {
      images.insert(images.begin(), image("firstpg", model.GoesBack()));
      images.push_back(image("lastpg", model.GoesToLast()));
    }
    EXPECT_EQ(shown.bars.size(), variant_.bars);
    for (const ShownView::Bar& bar : shown.bars) {
      EXPECT_EQ(bar.images, images);
      EXPECT_EQ(bar.counter, model.Counter());
    }
  }

  static void CheckColumns(const ShownView& shown, const GridModel& model) {
    std::vector<std::string> names;
    for (const ShownView::Column& column : shown.columns) names.push_back(column.name);
    ASSERT_EQ(names, (std::vector<std::string>{"#", "ID", "City", "Amount", "Note"}));
    EXPECT_EQ(shown.columns[0].link + shown.columns[4].link, "");
    for (int column = 1; column <= 3; ++column) {
      const bool is_sorted = column == model.SortedBy();
      const char* const arrow = !is_sorted ? "" : model.Descends() ? "orderdesc.gif" : "orderasc.gif";
      EXPECT_EQ(shown.columns[static_cast<std::size_t>(column)].arrow, arrow) << column;
    }
  }

  /// The page size is posted exactly once: by the select, or hidden.
  static void CheckSelect(const ShownView& shown, const GridModel& model) {
    int sizes = 0;
    for (const Control& control : shown.controls) {
      if (control.name.find("maxrecords") == std::string::npos) continue;
      if (control.name.substr(5, 1) != shown.controls.front().name.substr(5, 1)) continue;
      EXPECT_EQ(control.value, std::to_string(model.PageSize()));
      EXPECT_EQ(control.has_selected_option, control.kind == Control::Kind::kSelect);
      ++sizes;
    }
    EXPECT_EQ(sizes, 1);
  }

  /// The page's own fields are asked for once each, with the values that the visitor had typed.
  void CheckOwnFields() const {
    Fields own;
    for (const platform::RequestField& field : request_) {
      if (!field.name.starts_with("Morvu")) own.push_back(field);
    }
    const auto texts = [](const Fields& fields) {
      std::vector<std::string> lines;
      for (const platform::RequestField& field : fields) lines.push_back(field.name + "=" + field.value);
      return lines;
    };
    EXPECT_EQ(texts(own), texts(variant_.own_fields));
  }

  const Variant& variant_;
  tests::TemporaryDatabase database_;
  std::shared_ptr<component::DBConnection> connection_ =
      platform::Create<component::DBConnection>(tests::TestEnvironment(), "Dralo.DBConnection");
  std::vector<GridModel> models_;
  std::vector<ShownView> shown_;
  std::vector<std::pair<int, int>> numbers_;  ///< FromRow and ToRow of each view.
  Fields request_;
  std::string last_click_ = "nothing";
};

}  // namespace dralo::driver
