#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "support/contains.h"
#include "support/records.h"
#include "support/rendering.h"
#include "views/form_grid.h"

namespace dralo::tests {

constexpr std::string_view kPeople = R"(
    CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Member BOOLEAN);
    INSERT INTO T VALUES (7, 'Ann', 1), (8, NULL, 0), (9, 'Cid', NULL))";

/// A one-record view, which a test changes before it asks for the records.
struct FormPage : Rendering {
  FormPage() {
    mode = state::Mode::kFormView;
    settings.EditSQL = "SELECT * FROM T";
  }

  std::string Form(platform::Recordset& records) {
    rows = -1;
    return Text(
        [&](html::HtmlWriter&, state::Render& render) { views::MakeFormGrid(render, records, rows); });
  }
};

/// The rows of the fields on a page that has no buttons and shows one record.
inline std::string FieldRows(std::string_view form) {
  const std::size_t start = form.find('\n') + 1;
  const std::size_t end = form.find("</table>");
  return end == form.npos ? "(no table)" : std::string(form.substr(start, end - start));
}

}  // namespace dralo::tests
