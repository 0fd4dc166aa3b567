#include "record/page_script.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "record/attempt.h"
#include "record/column_texts.h"
#include "record/property_texts.h"
#include "record/sorted_properties.h"

namespace dralo::record {
namespace {

using Name = std::string_view;

constexpr std::array kNumbers = {std::int64_t{0},
                                 std::int64_t{1},
                                 std::int64_t{2},
                                 std::int64_t{3},
                                 std::int64_t{5},
                                 std::int64_t{10},
                                 std::int64_t{20},
                                 std::int64_t{44},
                                 std::int64_t{45},
                                 std::int64_t{46},
                                 std::int64_t{-1},
                                 std::int64_t{-7},
                                 std::int64_t{100},
                                 std::int64_t{32'767},
                                 std::int64_t{32'768},
                                 std::int64_t{-32'768},
                                 std::int64_t{2'147'483'647},
                                 std::int64_t{-2'147'483'648},
                                 std::int64_t{1} << 40};

/// Without these a view does something else than its plan wishes.
constexpr std::array kEssential = {Name("sql"),
                                   Name("FormSQL"),
                                   Name("EditSQL"),
                                   Name("DeleteSQL"),
                                   Name("Tag"),
                                   Name("EditOptions"),
                                   Name("EditPrimaryKeys"),
                                   Name("EditPerformUpdates"),
                                   Name("EditFieldsReadOnly"),
                                   Name("EditNewPKStatement"),
                                   Name("RecordsMaxLimit"),
                                   Name("DisplayType")};

constexpr std::array kBadConnections = {Name("Provider=SQLite"), Name("Provider=Nobody;Data Source=x"),
                                        Name(""), Name("Provider=SQLite;Data Source=/nowhere/x.db")};

}  // namespace

void PageScript::Set(std::string_view name, const PropertyValue& value) {
  journal_.AddProperty("set " + std::string(name), value);
  Attempt(journal_, "set", [&] { view_.Set(name, value); });
}

void PageScript::SetUp() {
  SetText("Tag", plan_.tag);
  if (chance_.Percent(15)) SetText("Language", chance_.Pick(SuitableTexts("Language")));
  Connect();
  if (chance_.Percent(70)) SetRandomProperties();
  SetStatements();
  if (plan_.wish != Wish::kGrid || chance_.Percent(40)) SetEditing();
  if (chance_.Percent(20)) SetRandomProperties();
  if (chance_.Percent(50)) SetColumns();
  if (chance_.Percent(plan_.wish == Wish::kGrid ? 5 : 30)) AddLookups();
  if (plan_.IsChange() && plan_.is_careful) return;
  if (chance_.Percent(4)) SupplyRecordset();
  if (chance_.Percent(4)) SupplyCommand();
}

void PageScript::Connect() {
  const std::size_t kind = chance_.Below(plan_.is_careful ? 90 : 100);
  if (kind < 75) return SetText("ConnectionString", stage_.connection_string);
  if (kind < 90) return Set("DrConnection", ObjectPtr(stage_.shared));
  if (kind < 93) return SetText("ConnectionString", stage_.connection_string + ";Mode=Read");
  if (kind < 96) return SetText("ConnectionString", chance_.Pick(kBadConnections));
  if (kind < 98)
    Set("DrConnection", ObjectPtr(Create<DBConnection>(stage_.environment, "Dralo.DBConnection")));
}

void PageScript::SetStatements() {
  const std::size_t kind = chance_.Below(20);
  std::string sql(kind < 16 ? plan_.table->select : plan_.table->shorter_select);
  if (kind == 0) sql = "SELECT * FROM " + std::string(plan_.table->name);
  if (kind == 1) sql += " WHERE 1=1";
  if (kind == 2 && !plan_.is_careful) sql += " ORDER BY 1";
  SetText("sql", sql);
  if (plan_.wish == Wish::kFormView && chance_.Percent(30)) SetFormOfSeveral();
  if (chance_.Percent(25)) SetOtherStatements();
}

void PageScript::SetOtherStatements() {
  if (chance_.Percent(60)) SetText("FormSQL", plan_.table->shorter_select);
  if (chance_.Percent(60)) SetText("EditSQL", plan_.table->select);
  if (plan_.is_careful) return;
  if (chance_.Percent(20)) SetText("FormSQL", chance_.Pick(SuitableTexts("FormSQL")));
  if (chance_.Percent(20)) SetText("EditSQL", chance_.Pick(SuitableTexts("EditSQL")));
}

void PageScript::SetFormOfSeveral() {
  SetText("DisplayType", "form");
  Set("RecordsPerPage", static_cast<std::int64_t>(1 + chance_.Below(5)));
}

void PageScript::SetEngine() {
  static constexpr std::array kEngines = {Name("ORACLE"), Name("SQLA"), Name("MSSQL"), Name("access"),
                                          Name("x")};
  const std::string engine(chance_.Pick(kEngines));
  const auto connection =
      std::dynamic_pointer_cast<DBConnection>(std::get<ObjectPtr>(view_.Get("DrConnection")));
  if (connection == nullptr) return;
  for (const ConnectionProperty& property : ConnectionProperties()) {
    if (property.name == "DatabaseEngine") property.set(*connection, engine);
    journal_.AddProperty(property.name, property.get(*connection));
  }
}

void PageScript::SetEditing() {
  if (chance_.Percent(30)) SetEngine();
  SetText("EditOptions", chance_.Percent(50) ? "ADD UPDATE DELETE" : "ALL");
  if (chance_.Percent(10)) SetText("EditOptions", chance_.Pick(SuitableTexts("EditOptions")));
  if (plan_.is_careful || chance_.Percent(85)) SetText("EditPrimaryKeys", plan_.table->keys);
  if (chance_.Percent(70)) SetText("EditNewPKStatement", plan_.table->new_key);
  if (chance_.Percent(85)) SetText("DeleteSQL", "DELETE FROM " + std::string(plan_.table->name));
}

void PageScript::SetRandomProperties() {
  const std::size_t kind = chance_.Below(10);
  if (kind < 8) {
    for (std::size_t rest = 1 + chance_.Below(kind < 5 ? 5 : 20); rest > 0; --rest) {
      SetRandom(*chance_.Pick(SortedViewProperties()));
    }
    return;
  }
  for (const ViewProperty* property : SortedViewProperties()) {
    if (chance_.Percent(50)) SetRandom(*property);
  }
}

void PageScript::SetRandom(const ViewProperty& property) {
  const bool is_essential = std::ranges::find(kEssential, property.name) != kEssential.end();
  if (is_essential && (plan_.is_careful || chance_.Percent(80))) return;
  if (property.set == nullptr && chance_.Percent(95)) return;
  if (property.name == "ConnectionString" && chance_.Percent(95)) return;
  if (property.type == PropertyType::kObject && chance_.Percent(95)) return;
  Set(property.name, RandomValue(property));
}

PropertyValue PageScript::RandomValue(const ViewProperty& property) {
  const std::size_t kind = chance_.Below(plan_.is_careful ? 95 : 100);
  if (kind == 99) return RandomNumber();  // Of whatever type the property is.
  switch (property.type) {
    case PropertyType::kBoolean:
      return chance_.Percent(50);
    case PropertyType::kInteger:
    case PropertyType::kLong:
      return RandomNumber();
    case PropertyType::kObject:
    case PropertyType::kHandler:
    case PropertyType::kTokenCallback:
      return ObjectPtr();
    case PropertyType::kList:
      return std::vector<Variant>();
    case PropertyType::kText:
      return std::string(chance_.Pick(kind < 85 ? SuitableTexts(property.name) : AwkwardTexts()));
  }
  return false;
}

PropertyValue PageScript::RandomNumber() { return chance_.Pick(kNumbers); }

void PageScript::SetColumns() {
  for (std::size_t rest = 1 + chance_.Below(8); rest > 0; --rest) {
    const IndexedProperty& property = *chance_.Pick(SortedIndexedProperties());
    if (property.set == nullptr) continue;
    const auto column = static_cast<std::int16_t>(chance_.Below(18));
    const bool is_function = property.name == "GridFormatCellFunction";
    const bool is_template = property.name == "GridFreeFormatCellByCol";
    const Texts texts = is_function   ? CellFunctions()
                        : is_template ? CellTemplates()
                                      : SuitableTexts("GridTDTag");
    const std::string_view text = chance_.Percent(92) ? chance_.Pick(texts) : chance_.Pick(AwkwardTexts());
    journal_.Add("set " + std::string(property.name) + " " + std::to_string(column), text);
    Attempt(journal_, "set", [&] { property.set(view_, column, text); });
  }
}

void PageScript::AddLookups() {
  struct Lookup {
    Name field, table, link, display, order;
  };
  static constexpr auto kLookups = std::to_array<Lookup>({
      {"Country", "Codes", "Code", "Name", ""},
      {"City", "Customers", "City", "Company", "City"},
      {"Stars", "Notes", "ID", "Name", "2"},
      {"Qty", "Customers", "ID", "Company", "Company DESC"},
      {"Active", "Codes", "Flag", "Name", ""},
      {"Since", "Codes", "Day", "Day", "1"},
      {"ID", "Customers", "ID", "ID", ""},
      {"Item", "Nobody", "x", "y", ""},
      {"NAME", "Loose", "a", "b", ""},
      {"Credit", "Lines", "Qty", "Item", "nobody"},
      {"a,b", "c", "d", "e", "f"},
      {"", "", "", "", ""},
  });
  for (std::size_t rest = 1 + chance_.Below(4); rest > 0; --rest) {
    const Lookup& one = chance_.Pick(kLookups);
    const bool allow_nulls = chance_.Percent(50);
    view_.AddEditLookup(one.field, one.table, one.link, one.display, one.order, allow_nulls);
    journal_.Add("lookup", view_.EditLookupAsString(one.field));
  }
}

void PageScript::SupplyRecordset() {
  static constexpr std::array kCursors = {CursorType::kForwardOnly, CursorType::kKeyset, CursorType::kStatic};
  const CursorType cursor = chance_.Pick(kCursors);
  const bool is_editable = chance_.Percent(30);
  const std::string sql(chance_.Percent(80) ? plan_.table->select : plan_.table->name);
  const std::size_t limit = chance_.Percent(70) ? 0 : chance_.Below(9);
  Attempt(journal_, "supply a recordset", [&] {
    const auto records = Create<Recordset>(stage_.environment, "ADODB.Recordset");
    records->SetMaxRecords(static_cast<std::int64_t>(limit));
    if (is_editable) records->SetCursorLocation(CursorLocation::kClient);
    records->Open(sql, stage_.shared->Connection(), is_editable ? CursorType::kKeyset : cursor,
                  is_editable ? LockType::kOptimistic : LockType::kReadOnly);
    for (const auto* field : records->Fields()) journal_.Add("field", field->Name());
    Set("ADORecordset", ObjectPtr(records));
  });
}

void PageScript::SupplyCommand() {
  const auto command = Create<Command>(stage_.environment, "ADODB.Command");
  const std::size_t kind = chance_.Below(6);
  command->command_text = kind == 5   ? "Notes"
                          : kind == 4 ? "WITH t AS (SELECT 1 AS ID) SELECT * FROM t"
                                      : "SELECT ID, Company, Since FROM Customers WHERE ID>? AND City<>?";
  if (kind == 5) command->command_type = CommandType::kTable;
  if (kind < 4) command->parameters = {std::int64_t{5}, std::string("Oslo")};
  if (kind == 3) command->parameters.pop_back();
  if (chance_.Percent(30)) command->active_connection = stage_.shared->Connection();
  if (kind == 0) return SetText("sql", "UPDATE Notes SET Name='changed' WHERE ID=1");
  Set("StoredProcCommand", ObjectPtr(command));
}

}  // namespace dralo::record
