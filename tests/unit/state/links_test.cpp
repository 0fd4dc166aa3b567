#include "state/links.h"

#include <gtest/gtest.h>

#include <string>

#include "state/record_link.h"
#include "support/named_cases.h"
#include "support/records.h"
#include "support/rendering.h"

namespace dralo::tests {
namespace {

/// The addresses that a view writes.
struct Links : Rendering {
  std::string State(std::int32_t number) {
    return Text(
        [&](html::HtmlWriter& out, state::Render& render) { state::PutStateQuery(out, render, number); });
  }
  std::string Add() {
    return Text([](html::HtmlWriter& out, state::Render& render) { state::PutAddLink(out, render); });
  }
  std::string List() {
    return Text([](html::HtmlWriter& out, state::Render& render) { state::PutListLink(out, render); });
  }
  std::string Record(platform::Recordset& records, std::int32_t number) {
    return Text([&](html::HtmlWriter& out, state::Render& render) {
      state::RecordLink(render, records).Put(out, render, number);
    });
  }
  std::string FormRecord(platform::Recordset& records, std::int32_t number) {
    return Text([&](html::HtmlWriter& out, state::Render& render) {
      state::RecordLink::WithViewAtEnd(render, records).Put(out, render, number);
    });
  }
};

constexpr std::string_view kOrderLines = R"(
    CREATE TABLE T (OrderID INTEGER, Article VARCHAR(20), PRIMARY KEY (OrderID, Article));
    INSERT INTO T VALUES (7, 'O''Neil, "x" & ä'))";

struct LinksOfAView : testing::Test {
  Links links;
};

TEST_F(LinksOfAView, StateQueryCarriesRecordCountAndPageSize) {
  EXPECT_EQ(links.State(21), "Morvu1CurrRecord=21&Morvu1CountRecords=on&Morvu1maxrecords=20");
}

TEST_F(LinksOfAView, StateQueryLeavesTheCountOutWhenRecordsAreNotCounted) {
  links.settings.CountRecords = false;
  links.settings.RecordsPerPage = 5;
  links.settings.Tag = "ab";
  EXPECT_EQ(links.State(1),
            "Morvuab"
            "CurrRecord=1&Morvuab"
            "maxrecords=5");
}

TEST_F(LinksOfAView, StateQueryCarriesTheStatementEncodedWhenItIsPersistent) {
  links.settings.PersistentSQL = true;
  links.settings.sql = "SELECT * FROM T WHERE N='ä b'";
  EXPECT_EQ(links.State(1),
            "Morvu1CurrRecord=1&Morvu1CountRecords=on&Morvu1maxrecords=20"
            "&Morvu1SQL=SELECT+%2A+FROM+T+WHERE+N%3D%27%C3%A4+b%27");
}

TEST_F(LinksOfAView, StateQueryCarriesThePagesOwnFieldsBehindEverything) {
  links.page.query = {{"Search", "a&b"}, {"Morvu1CurrRecord", "9"}};
  links.page.form = {{"City", "Köln"}};
  EXPECT_EQ(links.State(1),
            "Morvu1CurrRecord=1&Morvu1CountRecords=on&Morvu1maxrecords=20&Search=a%26b&City=K%C3%B6ln");
}

TEST_F(LinksOfAView, AddLinkKeepsTheOrderAndTheStateOfTheCurrentRecord) {
  links.current_record = 21;
  EXPECT_EQ(links.Add(),
            "/p?Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1&Morvu1OrderByFields="
            "&Morvu1CurrRecord=21&Morvu1CountRecords=on&Morvu1maxrecords=20");

  links.settings.OrderByFields = "Last Name";
  links.settings.OrderByDesc = true;
  EXPECT_EQ(links.Add(),
            "/p?Morvu1FormDisplay=formOneRec&Morvu1FormAdd=1&Morvu1OrderByFields=Last+Name"
            "&Morvu1OrderByDesc=True&Morvu1CurrRecord=21&Morvu1CountRecords=on&Morvu1maxrecords=20");
}

TEST_F(LinksOfAView, AddLinkHasNoApostropheThatCouldEndItsScript) {
  links.settings.OrderByFields = "'name'";
  links.settings.PersistentSQL = true;
  links.settings.sql = "SELECT 'x'";
  links.page.query = {{"it's", "o'clock"}};
  EXPECT_EQ(links.Add().find('\''), std::string::npos);
}

TEST_F(LinksOfAView, ListLinkCarriesTheStateAndThenTheOrder) {
  links.current_record = 27;
  links.settings.OrderByFields = "2";
  EXPECT_EQ(links.List(),
            "/p?Morvu1CurrRecord=27&Morvu1CountRecords=on&Morvu1maxrecords=20&Morvu1OrderByFields=2");

  links.settings.OrderByDesc = true;
  EXPECT_EQ(links.List(),
            "/p?Morvu1CurrRecord=27&Morvu1CountRecords=on&Morvu1maxrecords=20&Morvu1OrderByFields=2"
            "&Morvu1OrderByDesc=True");
}

struct LinkCase {
  std::string_view name, keys, order_by;
  bool is_descending;
  std::string_view address;
  std::string_view message = "";
};

class RecordLinkOf : public testing::TestWithParam<LinkCase> {};

TEST_P(RecordLinkOf, ARecordHasItsAddressBetweenTheViewAndTheState) {
  const Records records(kOrderLines);
  Links links;
  links.settings.EditPrimaryKeys = GetParam().keys;
  links.settings.EditSQL = "SELECT * FROM T";
  links.settings.OrderByFields = GetParam().order_by;
  links.settings.OrderByDesc = GetParam().is_descending;
  const std::string address(GetParam().address);
  const std::string state = "&Morvu1CurrRecord=27&Morvu1CountRecords=on&Morvu1maxrecords=20";
  EXPECT_EQ(links.Record(*records, 27), "/p?Morvu1FormDisplay=formOneRec" + address + state);
  EXPECT_EQ(links.settings.ErrorMessage, GetParam().message);
  EXPECT_EQ(links.FormRecord(*records, 27), "/p?" + address + state + "&Morvu1FormDisplay=formOneRec");
}

constexpr LinkCase kLinks[] = {
    {"IsItsPositionWithoutKeys", "", "", false, "&Morvu1BookMark=27&Morvu1OrderByFields="},
    {"IsItsKey", "OrderID", "", false, "&Morvu1PK=7&Morvu1OrderByFields="},
    {"IsItsKeyWithTheOrder", "OrderID", "1", true,
     "&Morvu1PK=7&Morvu1OrderByFields=1&Morvu1OrderByDesc=True"},
    {"JoinsEncodedKeysInTheOrderOfTheirList", " article , ORDERID", "", false,
     "&Morvu1PK=O%27Neil%2C+%22x%22+%26+%C3%A4,7&Morvu1OrderByFields="},
    {"FallsBackToThePositionAndSaysSoWhenAKeyIsNoField", "OrderID,Colour", "", false,
     "&Morvu1BookMark=27&Morvu1OrderByFields=",
     "The record has no field named \"Colour\", when trying to construct a Primary Key URL link<br>"},
};

INSTANTIATE_TEST_SUITE_P(Addresses, RecordLinkOf, testing::ValuesIn(kLinks), kByName);

TEST(RecordLink, EndsWithTheKeyOfTheViewOnlyOnceWhenThePageRepeatsIt) {
  const Records records(kOrderLines);
  Links links;
  links.settings.Tag = "12";
  links.page.query = {{"Morvu12FormDisplay", "formOneRec"}, {"x", "y"}};
  EXPECT_EQ(links.FormRecord(*records, 3),
            "/p?&Morvu12BookMark=3&Morvu12OrderByFields=&Morvu12CurrRecord=3&Morvu12CountRecords=on"
            "&Morvu12maxrecords=20&&x=y&Morvu12FormDisplay=formOneRec");
}

}  // namespace
}  // namespace dralo::tests
