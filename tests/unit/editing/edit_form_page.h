#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "component/db_connection.h"
#include "editing/edit_form.h"
#include "editing/form_edit_field.h"
#include "settings/setters.h"
#include "state/current_mode.h"
#include "support/contains.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {

/// Two records with a key, a required text and another one.
inline constexpr std::string_view kPeople = R"(
    CREATE TABLE T (ID INTEGER PRIMARY KEY, Name VARCHAR(20) NOT NULL, City VARCHAR(20));
    INSERT INTO T VALUES (7, 'Ann', 'Oslo'), (8, 'Bo', NULL))";

/// A table of one column "n" with one value.
inline Records OneValue(std::string_view declared_type, std::string_view literal) {
  return Records("CREATE TABLE T(n " + std::string(declared_type) + "); INSERT INTO T VALUES(" +
                 std::string(literal) + ")");
}

/// A page with an edit form, which a test changes before it asks for the form or for one control.
struct EditFormPage : Rendering {
  EditFormPage() { settings::SetEditOptions(settings, "UPDATE"); }

  std::string Form(platform::Recordset& records) {
    rows = -1;
    mode = AskedForm();
    return Text(
        [&](html::HtmlWriter&, state::Render& render) { editing::RenderEditForm(render, records, rows); });
  }

  /// The control of a field at that 0-based position of the record.
  std::string Control(platform::Field& field, int index = 0) {
    mode = AskedForm();
    return Text([&](html::HtmlWriter&, state::Render& render) {
      editing::FormEditFields(render).GetFormEditField(field, index);
    });
  }

  /// The edit or the add form, whatever is allowed.
  state::Mode AskedForm() const {
    settings::Settings edited = settings;
    settings::SetDisplayType(edited, "form");
    settings::SetEditOptions(edited, "UPDATE NOVIEW");
    const auto change_keys = settings.Hardened ? state::ChangeKeys::kForm : state::ChangeKeys::kAnywhere;
    const state::RequestKeys keys(page.GetRequest(), settings.Tag, change_keys);
    return state::CurrentMode(edited, &keys, environment->Regional(), outcome.has_failed_to_save);
  }

  void Post(std::string_view key, std::string_view value) {
    page.form.push_back({"Morvu" + settings.Tag + std::string(key), std::string(value)});
  }

  /// As if a save of this post had failed.
  void FailSave(std::vector<std::pair<std::string_view, std::string_view>> fields) {
    outcome.has_failed_to_save = true;
    for (const auto& [name, value] : fields) Post("_Form_" + std::string(name), value);
  }
};

/// Tests of one form, and of one control.
struct EditForm : testing::Test {
  EditFormPage form;
};
struct EditField : testing::Test {
  EditFormPage form;
};

/// The part of `text` from the first `from` to the first `to` behind that, both included; empty when there is
/// none.
inline std::string_view Part(std::string_view text, std::string_view from, std::string_view to) {
  const std::size_t start = text.find(from);
  const std::size_t end = start == text.npos ? start : text.find(to, start + from.size());
  return end == text.npos ? std::string_view() : text.substr(start, end + to.size() - start);
}

}  // namespace dralo::tests
