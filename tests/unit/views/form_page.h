#pragma once

#include <string>
#include <string_view>

#include "unit/views/grid_page.h"
#include "views/form_grid.h"

namespace dralo::tests {

constexpr std::string_view kPeople = R"(
    CREATE TABLE T (ID INTEGER, Name VARCHAR(20), Member BOOLEAN);
    INSERT INTO T VALUES (7, 'Ann', 1), (8, NULL, 0), (9, 'Cid', NULL))";

/// A one-record view, of three people or of the records that a test asks for.
struct FormPage : testing::Test, Rendering {
  FormPage() {
    mode = state::Mode::kFormView;
    settings.EditSQL = "SELECT * FROM T";
  }

  std::string Form() { return Form(*Records(kPeople)); }
  std::string FormOfNobody() { return Form(*Records(kPeople, "SELECT * FROM T WHERE ID = 0")); }
  std::string Form(platform::Recordset& records) {
    rows = -1;
    return Text(
        [&](html::HtmlWriter&, state::Render& render) { views::MakeFormGrid(render, records, rows); });
  }

  /// The rows of the fields on a page that has no buttons and shows one record.
  std::string FieldRows() { return FieldRows(*Records(kPeople)); }
  std::string FieldRows(platform::Recordset& records) {
    const std::string form = Form(records);
    const std::size_t start = form.find('\n') + 1;
    const std::size_t end = form.find("</table>");
    return end == form.npos ? "(no table)" : form.substr(start, end - start);
  }
};

using FormGrid = FormPage;

}  // namespace dralo::tests
