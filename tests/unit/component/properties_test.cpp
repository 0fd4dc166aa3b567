#include "component/property.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <stdexcept>

#include "component/db_connection.h"
#include "support/view_page.h"
#include "text/letter_case.h"

namespace dralo::component {
namespace {

using tests::TestEnvironment;

/// Defaults of the properties that do not start empty, false or without object.
const std::map<std::string_view, PropertyValue> kDefaults = {
    {"Language", std::string("ENG")},
    {"Tag", std::string("1")},
    {"DisplayType", std::string("default")},
    {"RecordsPerPage", std::int64_t{20}},
    {"RecordsMaxLimit", std::int64_t{1'000'000}},
    {"RecordCount", std::int64_t{-1}},
    {"CountRecords", true},
    {"PersistPageFormRequest", true},
    {"Hardened", false},
    {"UseCSS", true},
    {"DisplayHeader", true},
    {"TableTag", std::string("border=\"0\" cellspacing=\"0\"")},
    {"GridDisplayIndex", true},
    {"ImageDir", std::string("../gfx/")},
    {"DisplayNavBar", std::string("bottom")},
    {"DisplayNavBarTextOptions", std::string("both")},
    {"DisplayNavBarFirstLastBtn", true},
    {"RecordsPerPageOptions", std::string("5,10,20,30,40,50,100,200")},
    {"RecordsPerPageSelectPlacement", std::string("top")},
    {"DisplayExcelIcon", true},
    {"ApplyCellFormattingToForm", true},
    {"ApplyColFormattingToForm", true},
    {"MemoFieldLimit", std::int64_t{-1}},
    {"GridFreeFormatCellDataFieldDelimiter", std::string("#")},
    {"GridFreeFormatCellColumnDelimiter", std::string(",")},
    {"EditPerformUpdates", true},
    {"RequiredFieldIndicator", std::string("&nbsp;*&nbsp;")},
    {"CurrentMode", std::string("grid")},
};

PropertyValue NeutralValue(PropertyType type) {
  switch (type) {
    case PropertyType::kText:
      return std::string();
    case PropertyType::kBoolean:
      return false;
    case PropertyType::kObject:
    case PropertyType::kHandler:
    case PropertyType::kTokenCallback:
      return platform::ObjectPtr();
    case PropertyType::kList:
      return std::vector<platform::Variant>();
    default:
      return std::int64_t{0};
  }
}

/// A value of the type that differs from `value` and that every setter keeps unchanged.
PropertyValue DifferentFrom(const PropertyValue& value) {
  if (const auto* flag = std::get_if<bool>(&value)) return !*flag;
  if (const auto* number = std::get_if<std::int64_t>(&value)) return *number + 7;
  if (std::holds_alternative<std::vector<platform::Variant>>(value)) {
    return std::vector<platform::Variant>{std::int64_t{7}, std::string("seven"), platform::Null{}};
  }
  return std::get<std::string>(value) + "X";
}

class EveryProperty : public ::testing::TestWithParam<Property<DbView>> {
 protected:
  DbView view{TestEnvironment()};
};

TEST_P(EveryProperty, HasItsDefault) {
  const auto& property = GetParam();
  if (property.get == nullptr) {
    EXPECT_EQ(property.access, Access::kWriteOnly);
    return;
  }
  const auto found = kDefaults.find(property.name);
  EXPECT_EQ(property.get(view), found != kDefaults.end() ? found->second : NeutralValue(property.type));
}

TEST_P(EveryProperty, ReadsBackWhatWasSet) {
  const auto& property = GetParam();
  const std::set<std::string_view> stored_differently = {"ConnectionString", "Language", "Locale",
                                                         "TableTag"};
  if (property.set == nullptr) {
    EXPECT_EQ(property.access, Access::kReadOnly);
    return;
  }
  if (property.get == nullptr || property.type == PropertyType::kObject ||
      property.type == PropertyType::kHandler || property.type == PropertyType::kTokenCallback ||
      stored_differently.contains(property.name)) {
    return;  // These have tests of their own.
  }
  const PropertyValue value = DifferentFrom(property.get(view));
  property.set(view, value);
  EXPECT_EQ(property.get(view), value);
}

TEST_P(EveryProperty, RefusesAValueOfAnotherTypeAndKeepsItsOwn) {
  const auto& property = GetParam();
  if (property.set == nullptr) {
    EXPECT_THROW(view.Set(property.name, std::string()), std::invalid_argument);
    return;
  }
  const bool is_text = property.type == PropertyType::kText;
  const PropertyValue wrong = is_text ? PropertyValue(true) : PropertyValue(std::string("text"));
  try {
    view.Set(property.name, wrong);
    FAIL() << "accepted";
  } catch (const std::invalid_argument& refusal) {
    EXPECT_TRUE(std::string_view(refusal.what()).starts_with(std::string(property.name) + " must be "));
  }
  if (property.get == nullptr) return;
  EXPECT_EQ(property.get(view), property.get(DbView(TestEnvironment())));
}

TEST_P(EveryProperty, IsFoundInAnyLetterCase) {
  ASSERT_NE(FindDbViewProperty(text::ToUpper(GetParam().name)), nullptr);
  EXPECT_EQ(FindDbViewProperty(text::ToUpper(GetParam().name))->name, GetParam().name);
  EXPECT_EQ(FindDbViewProperty(text::ToLower(GetParam().name))->name, GetParam().name);
}

TEST_P(EveryProperty, HasASentenceOfDocumentation) { EXPECT_TRUE(GetParam().doc.ends_with('.')); }

TEST_P(EveryProperty, OfTypeObjectNamesItsClass) {
  EXPECT_EQ(GetParam().type == PropertyType::kObject, !GetParam().object_class.empty());
}

INSTANTIATE_TEST_SUITE_P(Properties, EveryProperty,
                         ::testing::ValuesIn(DbViewProperties().begin(), DbViewProperties().end()),
                         [](const auto& row) { return std::string(row.param.name); });

struct Properties : testing::Test {
  DbView view{TestEnvironment()};
};

TEST_F(Properties, StandInTheTableOnce) {
  std::set<std::string> names;
  for (const auto& property : DbViewProperties()) names.insert(text::ToUpper(property.name));
  for (const auto& property : DbViewIndexedProperties()) names.insert(text::ToUpper(property.name));
  EXPECT_EQ(names.size(), DbViewProperties().size() + DbViewIndexedProperties().size());
}

TEST_F(Properties, OfIntegerTypeRefuseWhatDoesNotFit) {
  EXPECT_THROW(view.Set("GridLinkIndex", std::int64_t{40'000}), std::invalid_argument);
  EXPECT_THROW(view.Set("MemoFieldLimit", std::int64_t{3'000'000'000}), std::invalid_argument);
}

TEST_F(Properties, OfObjectTypeRefuseAnObjectOfAnotherClass) {
  EXPECT_THROW(view.Set("DrConnection", TestEnvironment().CreateObject("ADODB.Recordset")),
               std::invalid_argument);
}

TEST_F(Properties, OfObjectTypeReadBackTheObject) {
  const auto connection = TestEnvironment().CreateObject("Dralo.DBConnection");
  view.Set("DrConnection", connection);
  EXPECT_EQ(view.Get("DrConnection"), PropertyValue(connection));
  const auto command = TestEnvironment().CreateObject("ADODB.Command");
  view.Set("StoredProcCommand", command);
  EXPECT_EQ(view.Get("StoredProcCommand"), PropertyValue(command));
}

TEST_F(Properties, ThatDoNotExistAreRefusedByName) {
  EXPECT_THROW(view.Get("Colour"), std::invalid_argument);
  EXPECT_THROW(view.Set("Colour", true), std::invalid_argument);
}

TEST_F(Properties, ThatCanOnlyBeSetCannotBeRead) {
  EXPECT_THROW(view.Get("ADORecordset"), std::invalid_argument);
}

TEST(ConnectionStringProperty, ReadsBackAfterItConnected) {
  tests::ViewPage shop;
  EXPECT_EQ(shop.view.Get("ConnectionString"), PropertyValue(shop.database.ConnectionString()));
}

TEST_F(Properties, OfALanguageReadBackAKnownCode) {
  view.Set("Language", std::string("GER"));
  EXPECT_EQ(view.Get("Language"), PropertyValue(std::string("GER")));
}

TEST_F(Properties, OfALocaleReadBackAKnownOne) {
  view.Set("Locale", std::string("de-DE"));
  EXPECT_THROW(view.Set("Locale", std::string("no such place!")), platform::Error);
  EXPECT_EQ(view.Get("Locale"), PropertyValue(std::string("de-DE")));
  std::string scratch;
  EXPECT_EQ(view.GetEnvironment().Regional().Text(1.5, scratch), "1,5");
  view.Set("Locale", std::string());
  EXPECT_EQ(view.GetEnvironment().Regional().Text(1.5, scratch), "1.5");
}

TEST(DBConnectionProperties, ReadBackWhatWasSet) {
  DBConnection connection(TestEnvironment());
  const auto& [object, engine] = std::tie(DBConnectionProperties()[0], DBConnectionProperties()[1]);
  const auto supplied = TestEnvironment().CreateObject("ADODB.Connection");
  object.set(connection, supplied);
  engine.set(connection, std::string("access"));
  EXPECT_EQ(object.get(connection), PropertyValue(supplied));
  EXPECT_EQ(engine.get(connection), PropertyValue(std::string("ACCESS")));
}

class EveryColumnSetting : public ::testing::TestWithParam<IndexedProperty> {};

TEST_P(EveryColumnSetting, ReadsBackPerColumnAndIsEmptyElsewhere) {
  DbView view(TestEnvironment());
  const auto& property = GetParam();
  if (property.set == nullptr) {
    EXPECT_EQ(property.access, Access::kReadOnly);
    return;
  }
  property.set(view, 3, "nowrap");
  EXPECT_EQ(property.get(view, 3), platform::Variant(std::string("nowrap")));
  EXPECT_EQ(property.get(view, 9), platform::Variant(std::string()));
  EXPECT_EQ(view.GetSettings().ErrorMessage, "");
}

INSTANTIATE_TEST_SUITE_P(Properties, EveryColumnSetting,
                         ::testing::ValuesIn(DbViewIndexedProperties().begin(),
                                             DbViewIndexedProperties().end()),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace dralo::component
