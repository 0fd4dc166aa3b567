#include <gtest/gtest.h>

#include "editing/primary_keys.h"
#include "settings/open_connection.h"
#include "state/primary_key_value_list.h"
#include "support/shown_view.h"
#include "unit/editing/edited_view.h"
#include "unit/editing/one_field.h"

namespace dralo::tests {
namespace {

/// Records are addressed by links and by posted forms and must be found again, whatever the locale.
struct KeyRoundTrip : testing::Test {
  static constexpr std::string_view kQuery = "SELECT K, L, Nr FROM T";

  /// A table of the keys (K, L) and the number of the row; each row is asked for in both ways.
  static void Check(std::string_view keys, std::string_view columns, std::string_view rows) {
    const std::string statements = "CREATE TABLE T (" + std::string(columns) +
                                   ", Nr INTEGER); INSERT INTO T VALUES " + std::string(rows);
    for (platform::Environment* environment :
         std::initializer_list<platform::Environment*>{&AmericanEnvironment(), &German()}) {
      EditedView view(statements, *environment);
      view.Settings().EditPrimaryKeys = keys;
      view.Settings().sql = view.Settings().EditSQL = kQuery;
      CheckRows(view);
    }
  }

  static std::shared_ptr<platform::Recordset> Open(EditedView& view, std::string_view sql) {
    auto records = platform::Create<platform::Recordset>(*view.environment, "ADODB.Recordset");
    records->Open(sql, settings::OpenConnection(view.Settings()));
    return records;
  }

  static void CheckRows(EditedView& view) {
    const auto records = Open(view, kQuery);
    state::PrimaryKeyValueList list(view.Settings(), *records);
    int rows = 0;
    for (; !records->Eof(); records->MoveNext(), ++rows) {
      ASSERT_TRUE(list.Read(settings::ErrorReport(view.settings.ErrorMessage))) << view.ErrorMessage();
      const auto number = platform::Own(records->Fields()[2]->Value());
      html::HtmlWriter link;
      list.Put(link.Put("/p?Morvu1PK="));
      EXPECT_EQ(Found(view, QueryOf(link.Take())), number);
      EXPECT_EQ(Found(view, {{"Morvu1PK", list.Plain()}}), number);
    }
    EXPECT_GT(rows, 0);
    EXPECT_EQ(view.ErrorMessage(), "");
  }

  /// The number of the one row that the posted key finds; a text that says what is wrong otherwise.
  static platform::Variant Found(EditedView& view, const FakePage::Fields& posted) {
    view.page.form = posted;
    const std::string sql =
        view.Rendered([](state::Render& render) { return editing::GetSqlPK(render, kQuery); });
    if (sql.empty()) return view.ErrorMessage();
    const auto records = Open(view, sql);
    if (records->Eof()) return "no row for " + sql;
    auto number = platform::Own(records->Fields()[2]->Value());
    records->MoveNext();
    return records->Eof() ? number : platform::Variant("several rows for " + sql);
  }
};

TEST_F(KeyRoundTrip, FindsWholeNumbers) {
  Check("K", "K INTEGER, L", "(5,0,1), (-7,0,2), (0,0,3), (9223372036854775807,0,4), (1234567,0,5)");
}

TEST_F(KeyRoundTrip, FindsDecimals) {
  Check("K", "K DECIMAL, L", "(1.5,0,1), (-0.25,0,2), (1234567.89,0,3), (100,0,4)");
  Check("K", "K REAL, L",
        "(0.1,0,1), (1e22,0,2), (1e-7,0,3), (1.0/3,0,4), (123456789.123456789,0,5), (2,0,6)");
}

TEST_F(KeyRoundTrip, FindsTexts) {
  Check(
      "K", "K VARCHAR(40), L",
      R"(('O''Neil',0,1), ('a,b',0,2), ('a b',0,3), ('Zoë Ærøskøbing 🙂',0,4), ('say "x"',0,5), ('a&b=c',0,6),
           ('100%+',0,7), ('\',0,8), ('True',0,9), ('007',0,10))");
}

TEST_F(KeyRoundTrip, FindsDates) {
  Check("K", "K DATE, L", "('2001-02-03',0,1), ('0099-12-31',0,2), ('1899-12-30',0,3)");
  Check("K", "K DATETIME, L",
        "('2001-02-03 04:05:06',0,1), ('2001-02-03 04:05:06.25',0,2), ('1899-12-30 12:00:00',0,3)");
  Check("K", "K TIME, L", "('04:05:06',0,1), ('00:00:00',0,2), ('23:59:59.5',0,3)");
}

TEST_F(KeyRoundTrip, FindsBooleans) { Check("K", "K BOOLEAN, L", "(1,0,1), (0,0,2)"); }

TEST_F(KeyRoundTrip, FindsRecordsBySeveralKeys) {
  Check("K,L", "K REAL, L VARCHAR(20)", "(1.5,'O''Neil',1), (1.5,'x y',2), (2,'x y',3)");
  Check("K, L", "K DATE, L INTEGER", "('2001-02-03',1,1), ('2001-02-03',2,2)");
}

}  // namespace
}  // namespace dralo::tests
