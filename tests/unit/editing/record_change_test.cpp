#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "dralo/change.h"
#include "dralo/error.h"
#include "support/contains.h"
#include "unit/editing/saving.h"
#include "unit/editing/shared_form.h"

namespace dralo::tests {

namespace {

using platform::Change;
using platform::NamedValue;

component::PropertyValue Handler(std::function<void(Change&)> handle) {
  return platform::ObjectPtr(platform::MakeHandler(std::move(handle)));
}

/// A shop without detection of conflicts, whose page has one handler.
SharedForm& With(SharedForm& shop, const char* event, std::function<void(Change&)> handle) {
  shop.settings = {{"EditDetectConflicts", false}, {event, Handler(std::move(handle))}};
  return shop;
}

platform::Variant ValueOf(const std::vector<NamedValue>& values, std::string_view name) {
  for (const NamedValue& value : values) {
    if (value.name == name) return value.value;
  }
  ADD_FAILURE() << "no " << name;
  return {};
}

bool IsRefused(std::string_view page) { return Contains(page, "Record WAS NOT SAVED. See the messages"); }

TEST(OnSave, SeesTypedOldAndNewValues) {
  SharedForm shop;
  std::string seen;
  With(shop, "OnSave", [&](Change& change) {
    seen = change.Operation();
    EXPECT_EQ(std::get<std::int64_t>(ValueOf(change.Key(), "ID")), 1);
    EXPECT_EQ(std::get<std::int64_t>(ValueOf(change.Old(), "Stock")), 3);
    EXPECT_EQ(std::get<std::int64_t>(ValueOf(change.Values(), "Stock")), 1234);
    EXPECT_EQ(std::get<std::string>(ValueOf(change.Values(), "City")), "Oslo");
    EXPECT_TRUE(std::holds_alternative<platform::DateTime>(ValueOf(change.Values(), "Since")));
  });
  shop.Page(Typed(shop.Open(), {{"Stock", "1,234"}}));
  EXPECT_EQ(seen, "update");
  EXPECT_EQ(Row(shop.database, "ID=1", "Stock"), "1234");
}

TEST(OnSave, SetsFieldsThatTheFormDoesNotShow) {
  SharedForm shop;
  With(shop, "OnSave", [](Change& change) { change.Set("notes", std::string("stamped")); });
  shop.settings.emplace_back("FormFieldsHide", std::string("Notes"));
  shop.Page(Typed(shop.Open(), {{"City", "Rome"}}));
  EXPECT_EQ(Row(shop.database, "ID=1", "City,Notes"), "'Rome','stamped'");
}

TEST(OnSave, CannotSetWhatIsNoFieldOrNoValue) {
  for (const auto& [field, value] : {std::pair("Other", "1"), std::pair("Stock", "many")}) {
    SharedForm shop;
    With(shop, "OnSave",
         [&, field = field, value = value](Change& change) { change.Set(field, std::string(value)); });
    shop.Page(Typed(shop.Open(), {{"City", "Rome"}}));
    EXPECT_NE(shop.error, "") << field;
    EXPECT_EQ(Row(shop.database), kAnna) << field;
  }
}

TEST(OnSave, RefusesWithAllMessagesAtOnceAndNothingTypedIsLost) {
  SharedForm shop;
  With(shop, "OnSave", [](Change& change) {
    change.Refuse("City", "No <Rome>");
    change.Refuse("stock", "Too many");
    change.Refuse("", "Not today");
  });
  const std::string page = shop.Page(Typed(shop.Open(), {{"City", "Rome"}, {"Stock", "5"}}));
  EXPECT_TRUE(IsRefused(page));
  EXPECT_TRUE(Contains(page, "<br><span class=\"DraloFieldNote\">No &lt;Rome&gt;</span>"));
  EXPECT_TRUE(Contains(page, "<br><span class=\"DraloFieldNote\">Too many</span>"));
  EXPECT_TRUE(Contains(page, "<br>Not today</td>"));
  EXPECT_TRUE(Contains(page, R"(value="Rome")"));
  EXPECT_EQ(Row(shop.database), kAnna);
  EXPECT_EQ(shop.error, "");
}

TEST(OnSave, IsNotAskedBeforeTheTypesAreRight) {
  SharedForm shop;
  int calls = 0;
  With(shop, "OnSave", [&](Change&) { ++calls; });
  const std::string page = shop.Page(Typed(shop.Open(), {{"Stock", "x"}, {"Since", "y"}}));
  EXPECT_TRUE(Contains(page, "This is not a number."));
  EXPECT_TRUE(Contains(page, "This is not a valid date."));
  EXPECT_EQ(calls, 0);
}

TEST(OnSave, MayRefuseANewRecord) {
  SharedForm shop;
  With(shop, "OnSave", [](Change& change) {
    EXPECT_EQ(change.Operation(), "insert");
    EXPECT_TRUE(change.Key().empty());
    EXPECT_TRUE(change.Old().empty());
    change.Refuse("Name", "Taken");
  });
  const std::string page = shop.Page(Typed(shop.OpenNew(), {{"ID", "9"}, {"Name", "Eve"}}));
  EXPECT_TRUE(Contains(page, "Taken"));
  EXPECT_TRUE(Contains(page, R"(value="Eve")"));
  EXPECT_EQ(shop.database.Value("SELECT count(*) FROM T"), "2");
}

TEST(OnSave, ThatFailsUndoesEverythingAndSaysWhy) {
  SharedForm shop;
  With(shop, "OnSave", [&](Change& change) {
    shop.connection->Connection()->Execute("UPDATE T SET Notes='half' WHERE ID=2");
    change.Set("Notes", std::string("x"));
    throw std::runtime_error("The stock is closed");
  });
  const std::string page = shop.Page(Typed(shop.Open(), {{"City", "Rome"}}));
  EXPECT_TRUE(Contains(shop.error, "The stock is closed")) << shop.error;
  EXPECT_TRUE(Contains(page, R"(value="Rome")"));
  EXPECT_EQ(Row(shop.database), kAnna);
  EXPECT_EQ(Row(shop.database, "ID=2", "Notes"), "NULL");
}

TEST(OnSaved, WritesInTheTransactionOfTheSave) {
  for (const bool fails : {false, true}) {
    SharedForm shop;
    shop.database.Run("CREATE TABLE Audit(Entry TEXT)");
    With(shop, "OnSaved", [&](Change& change) {
      const auto id = std::get<std::int64_t>(ValueOf(change.Key(), "ID"));
      shop.connection->Connection()->Execute("INSERT INTO Audit VALUES('saved " + std::to_string(id) + "')");
      if (fails) throw platform::Error("No audit");
    });
    shop.Page(Typed(shop.Open(), {{"City", "Rome"}}));
    EXPECT_EQ(shop.database.Value("SELECT Entry FROM Audit"), fails ? "" : "saved 1");
    EXPECT_EQ(Row(shop.database, "ID=1", "City"), fails ? "'Oslo'" : "'Rome'") << shop.error;
  }
}

TEST(OnSaved, KnowsTheKeyThatTheDatabaseGave) {
  SharedForm shop;
  std::int64_t id = 0;
  With(shop, "OnSaved", [&](Change& change) {
    EXPECT_EQ(change.Operation(), "insert");
    id = std::get<std::int64_t>(ValueOf(change.Key(), "ID"));
  });
  shop.settings.emplace_back("EditNewPKStatement", std::string("autoincrement"));
  shop.Page(Typed(shop.OpenNew(), {{"Name", "Eve"}}));
  EXPECT_EQ(id, 3) << shop.error;
}

TEST(OnSaved, CanChangeNothingAnyMore) {
  for (const bool sets : {false, true}) {
    SharedForm shop;
    With(shop, "OnSaved",
         [&](Change& change) { sets ? change.Set("Notes", std::string("x")) : change.Refuse("Notes", "x"); });
    shop.Page(Typed(shop.Open(), {{"City", "Rome"}}));
    EXPECT_TRUE(Contains(shop.error, "The record is written already")) << shop.error;
    EXPECT_EQ(Row(shop.database), kAnna);
  }
}

TEST(OnDelete, RefusesAndTheRecordIsShownAsItIs) {
  SharedForm shop;
  With(shop, "OnDelete", [](Change& change) {
    EXPECT_EQ(change.Operation(), "delete");
    EXPECT_EQ(std::get<std::string>(ValueOf(change.Old(), "Name")), "Anna");
    EXPECT_TRUE(change.Values().empty());
    change.Refuse("", "She has orders");
  });
  const std::string page = shop.Page(Typed(shop.Open(), {{"City", "Rome"}}, "Morvu1FormDelete"));
  EXPECT_TRUE(
      Contains(page, "Record WAS NOT DELETED. See the messages beside the fields.<br>She has orders"));
  EXPECT_TRUE(Contains(page, R"(value="Oslo")"));
  EXPECT_EQ(Row(shop.database), kAnna);
}

TEST(OnDelete, ThatFailsOrSaysNothingDecides) {
  SharedForm shop;
  With(shop, "OnDelete", [](Change&) { throw std::runtime_error("Not now"); });
  shop.Page(Typed(shop.Open(), {}, "Morvu1FormDelete"));
  EXPECT_TRUE(Contains(shop.error, "Not now"));
  EXPECT_EQ(Row(shop.database), kAnna);
  With(shop, "OnDelete", [](Change&) {});
  shop.Page(Typed(shop.Open(), {}, "Morvu1FormDelete"));
  EXPECT_EQ(shop.database.Value("SELECT count(*) FROM T"), "1") << shop.error;
}

}  // namespace

}  // namespace dralo::tests
