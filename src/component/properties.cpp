#include <array>
#include <string>
#include <unordered_map>

#include "component/db_connection.h"
#include "component/db_view.h"
#include "component/property.h"
#include "component/property_row.h"
#include "settings/column_settings.h"
#include "settings/own_errors.h"
#include "settings/setters.h"
#include "text/letter_case.h"

namespace dralo::component {
namespace {

using enum Access;

template <auto Member>
using TypeOf = std::remove_reference_t<decltype(std::declval<settings::Settings&>().*Member)>;

/// A property that stores and returns its value unchanged.
template <auto Member>
constexpr Property<DbView> Row(std::string_view name, Access access, std::string_view doc,
                               std::string_view object_class = {}) {
  using Type = TypeOf<Member>;
  Property<DbView> row{.name = name,
                       .type = MemberTraits<Type>::kType,
                       .access = access,
                       .doc = doc,
                       .get = [](const DbView& view) { return ToPropertyValue(view.GetSettings().*Member); },
                       .set = nullptr,
                       .object_class = object_class};
  if (access == kReadOnly) return row;
  row.set = [](DbView& view, const PropertyValue& value) {
    view.MutableSettings().*Member = FromPropertyValue<Type>(value);
  };
  return row;
}

/// The value in the type of a setter's parameter; a std::string for a std::string_view.
template <class Value>
auto As(const PropertyValue& value) {
  using Kept = std::conditional_t<std::is_same_v<Value, std::string_view>, std::string, Value>;
  return FromPropertyValue<Kept>(value);
}

template <class Value>
void Assign(void (*set)(settings::Settings&, Value), DbView& view, const PropertyValue& value) {
  set(view.MutableSettings(), As<Value>(value));
}

/// The same for a setter that also creates objects.
template <class Value>
void Assign(void (*set)(settings::Settings&, platform::Environment&, Value), DbView& view,
            const PropertyValue& value) {
  set(view.MutableSettings(), view.GetEnvironment(), As<Value>(value));
}

/// A property whose setter does more than store the value.
template <auto Member, auto Set>
constexpr Property<DbView> Row(std::string_view name, Access access, std::string_view doc,
                               std::string_view object_class = {}) {
  Property<DbView> row = Row<Member>(name, access, doc, object_class);
  row.set = [](DbView& view, const PropertyValue& value) { Assign(Set, view, value); };
  return row;
}

/// A text that can only be set.
template <auto Set>
constexpr Property<DbView> TextSetterRow(std::string_view name, std::string_view doc) {
  return {.name = name,
          .type = PropertyType::kText,
          .access = kWriteOnly,
          .doc = doc,
          .get = nullptr,
          .set = [](DbView& view, const PropertyValue& value) { Assign(Set, view, value); }};
}

constexpr Property<DbView> WriteOnly(Property<DbView> row) {
  row.get = nullptr;
  return row;
}

constexpr Property<DbView> Secret(Property<DbView> row) {
  row.is_secret = true;
  return row;
}

constexpr Property<DbView> kCurrentMode{
    .name = "CurrentMode",
    .type = PropertyType::kText,
    .access = kReadOnly,
    .doc = R"(The view that the request selects: "grid", "formview", "formedit" or "formadd".)",
    .get = [](const DbView& view) -> PropertyValue { return std::string(view.CurrentMode()); },
    .set = nullptr};

using S = settings::Settings;

// clang-format off
constexpr auto kDbViewProperties = std::to_array<Property<DbView>>({
  Row<&S::sql, settings::SetSql>("sql", kReadWrite, "The query of the grid; a text that does not begin with \"SELECT \" is run as a command; also becomes FormSQL and EditSQL where these are empty."),
  Row<&S::FormSQL, settings::SetFormSql>("FormSQL", kReadWrite, "The query of the one-record view; setting it switches ApplyCellFormattingToForm and ApplyColFormattingToForm off."),
  Row<&S::EditSQL>("EditSQL", kReadWrite, "The query of the edit and add forms."),
  Row<&S::DeleteSQL>("DeleteSQL", kReadWrite, "The statement that deletes a record, without its WHERE, such as DELETE FROM Customers."),
  Row<&S::SqlParameters>("SqlParameters", kReadWrite, "Values for the ? of sql, in their order; used too when it is counted or downloaded, and for FormSQL and EditSQL while these are copies of it."),
  Row<&S::FormSqlParameters>("FormSqlParameters", kReadWrite, "Values for the ? of FormSQL."),
  Row<&S::EditSqlParameters>("EditSqlParameters", kReadWrite, "Values for the ? of EditSQL."),
  Row<&S::DeleteSqlParameters>("DeleteSqlParameters", kReadWrite, "Values for the ? of DeleteSQL."),
  Row<&S::PersistentSQL>("PersistentSQL", kReadWrite, "Carries the text of sql in the page, so that later requests use it."),
  Secret(Row<&S::StoredProcCommand, settings::SetStoredProcCommand>("StoredProcCommand", kReadWrite, "A prepared command that is run instead of an SQL text.", "ADODB.Command")),
  Secret(Row<&S::ConnectionString, settings::SetConnectionString>("ConnectionString", kReadWrite, "Connects to a database at once, on a new connection of the view's own.")),
  Secret(Row<&S::DrConnection, settings::SetDrConnection>("DrConnection", kReadWrite, "A connection that several views share.", "Dralo.DBConnection")),
  WriteOnly(Row<&S::ADORecordset, settings::SetAdoRecordset>("ADORecordset", kWriteOnly, "An open recordset that is shown instead of a query; switches CountRecords off.", "ADODB.Recordset")),
  Row<&S::Language, settings::SetLanguage>("Language", kReadWrite, "The interface language: \"ENG\", \"GER\" or \"NOR\" in capitals; other codes are ignored."),
  Row<&S::Locale, settings::SetLocale>("Locale", kReadWrite, "Language and country of dates, numbers and booleans, such as \"de-DE\"; empty for those of the process; set it before ConnectionString."),
  Row<&S::Tag>("Tag", kReadWrite, "One character that tells several views on a page apart; it is part of every request key and element id."),
  Row<&S::DisplayType, settings::SetDisplayType>("DisplayType", kReadWrite, "\"grid\", \"form\", or \"default\", which shows the one-record view when RecordsPerPage is 1."),
  Row<&S::RecordsPerPage, settings::SetRecordsPerPage>("RecordsPerPage", kReadWrite, "Rows on a page of the grid; a value that is not below RecordsMaxLimit is ignored."),
  Row<&S::RecordsMaxLimit>("RecordsMaxLimit", kReadWrite, "The highest record number that paging and export reach."),
  Row<&S::RecordCount>("RecordCount", kReadWrite, "How many records there are; -1 while unknown; a value of 1 or more is not counted again."),
  Row<&S::CountRecords>("CountRecords", kReadWrite, "Counts the records before the page is written, for the counter and the last-page button."),
  Row<&S::FromRow>("FromRow", kReadOnly, "The number of the first record shown; 0 before rendering and for an empty result."),
  Row<&S::ToRow>("ToRow", kReadOnly, "The number of the last record shown; 0 before rendering and for an empty result."),
  Row<&S::OrderByFields>("OrderByFields", kReadWrite, "The ORDER BY list: column names or numbers; clicks on the headers change it."),
  Row<&S::OrderByDesc>("OrderByDesc", kReadWrite, "Sorts the last column of OrderByFields in descending order."),
  Row<&S::PersistPageFormRequest>("PersistPageFormRequest", kReadWrite, "Writes the page's own posted fields back, so that they survive paging and sorting."),
  Row<&S::Hardened>("Hardened", kReadWrite, "Escapes values and trusts nothing that a visitor sends."),
  Row<&S::RecordsOutsideSql>("RecordsOutsideSql", kReadWrite, "Lets the forms of a hardened view show and change records that their own statements yield although sql does not."),
  Row<&S::UseCSS>("UseCSS", kReadWrite, "Writes CSS classes."),
  Row<&S::DisplayHeader>("DisplayHeader", kReadWrite, "Writes the header row of the grid and the labels of the forms."),
  Row<&S::DisplayDebug>("DisplayDebug", kReadWrite, "Shows the SQL above the view and in error messages, but not when Hardened; not for public pages."),
  Row<&S::ErrorMessage>("ErrorMessage", kReadOnly, "What went wrong, as HTML with one line per failure; empty when nothing did; numbered public texts when Hardened."),
  Row<&S::ErrorDetail>("ErrorDetail", kReadOnly, "What a hardened view keeps out of ErrorMessage, as text with one line per failure; for the page author alone."),
  Row<&S::Width, settings::SetWidth>("Width", kReadWrite, "The width of the whole view in the page, such as 100% or 600; quotes are removed."),
  Row<&S::TableTag, settings::SetTableTag>("TableTag", kReadWrite, "Attributes of the grid's table."),
  Row<&S::GridTableTag, settings::SetGridTableTag>("GridTableTag", kReadWrite, "More attributes of the grid's table, after those of TableTag."),
  Row<&S::FormTableTag>("FormTableTag", kReadWrite, "Attributes of the table of a record, in the one-record view and in the forms."),
  Row<&S::THTag>("THTag", kReadWrite, "Attributes of header cells."),
  Row<&S::TDTag>("TDTag", kReadWrite, "Attributes of data cells; ##Name## stands for the record's field Name."),
  Row<&S::TDOddTag>("TDOddTag", kReadWrite, "Attributes of data cells in odd rows; ##Name## stands for the record's field Name."),
  Row<&S::TDEvenTag>("TDEvenTag", kReadWrite, "Attributes of data cells in even rows; ##Name## stands for the record's field Name."),
  Row<&S::GridTRTag>("GridTRTag", kReadWrite, "Attributes of grid rows; ##Name## stands for the record's field Name."),
  Row<&S::GridTROddTag>("GridTROddTag", kReadWrite, "Attributes of odd grid rows; ##Name## stands for the record's field Name."),
  Row<&S::GridTREvenTag>("GridTREvenTag", kReadWrite, "Attributes of even grid rows; ##Name## stands for the record's field Name."),
  Row<&S::GridTDTag>("GridTDTag", kReadWrite, "Attributes of grid cells; ##Name## stands for the record's field Name."),
  Row<&S::GridTDOddTag>("GridTDOddTag", kReadWrite, "Attributes of grid cells in odd rows; ##Name## stands for the record's field Name."),
  Row<&S::GridTDEvenTag>("GridTDEvenTag", kReadWrite, "Attributes of grid cells in even rows; ##Name## stands for the record's field Name."),
  Row<&S::FormTDTag>("FormTDTag", kReadWrite, "Attributes of the value cells of the one-record view."),
  Row<&S::GridCellWidths>("GridCellWidths", kReadWrite, "Comma list of column widths by position, such as 50,,30%."),
  Row<&S::FormCellWidths>("FormCellWidths", kReadWrite, "Comma list: in the one-record view the widths of labels and of values, in the edit and add forms the width of each label by position."),
  Row<&S::GridFieldsShow>("GridFieldsShow", kReadWrite, "Comma list of the columns that the grid shows, by name or number; empty shows all."),
  Row<&S::GridFieldsHide>("GridFieldsHide", kReadWrite, "Comma list of the columns that the grid hides; when set, GridFieldsShow is ignored."),
  Row<&S::FormFieldsShow>("FormFieldsShow", kReadWrite, "Comma list of the fields that the forms show; empty shows all."),
  Row<&S::FormFieldsHide>("FormFieldsHide", kReadWrite, "Comma list of the fields that the forms hide; when set, FormFieldsShow is ignored."),
  Row<&S::GridColsNoSort>("GridColsNoSort", kReadWrite, "Comma list of columns without a sort link; * for all."),
  Row<&S::GridColsHtml>("GridColsHtml", kReadWrite, "Columns whose values are HTML by design, which a hardened page does not escape in the grid and the one-record view; \"*\" for all."),
  Row<&S::GridCellsNoBr>("GridCellsNoBr", kReadWrite, "Comma list of columns whose text stays on one line; * for all."),
  Row<&S::GridFieldsSupressDup>("GridFieldsSupressDup", kReadWrite, "Comma list of columns in which a value that repeats the row above is left blank."),
  Row<&S::GridDisplayFieldNames>("GridDisplayFieldNames", kReadWrite, "Comma list of the grid's captions by position; an empty item keeps the field name."),
  Row<&S::FormDisplayFieldNames>("FormDisplayFieldNames", kReadWrite, "Comma list of the forms' labels by position; an empty item keeps the field name."),
  Row<&S::GridDisplayIndex>("GridDisplayIndex", kReadWrite, "Shows the record number as the first column."),
  Row<&S::GridLinkIndex>("GridLinkIndex", kReadWrite, "The number of the column that links to the one-record view; 0 makes the record number the link, which needs GridDisplayIndex."),
  Row<&S::ImageDir>("ImageDir", kReadWrite, "The address of the folder with the images, with its closing slash."),
  Row<&S::DisplayNavBar, settings::SetDisplayNavBar>("DisplayNavBar", kReadWrite, "Where the navigation bar goes: top, bottom, both or none; at the top it needs a known record count."),
  Row<&S::DisplayNavBarTextOptions, settings::SetDisplayNavBarTextOptions>("DisplayNavBarTextOptions", kReadWrite, "What the bar counts: records, pages or both."),
  Row<&S::DisplayNavBarFirstLastBtn, settings::SetDisplayNavBarFirstLastBtn>("DisplayNavBarFirstLastBtn", kReadWrite, "Shows the first-page and last-page buttons; setting it to true switches CountRecords on."),
  Row<&S::DisableNavBarLastPageBtn>("DisableNavBarLastPageBtn", kReadWrite, "Shows the last-page button disabled."),
  Row<&S::DisplayRecordsPerPageSelect>("DisplayRecordsPerPageSelect", kReadWrite, "Shows the select for the page size."),
  Row<&S::RecordsPerPageOptions>("RecordsPerPageOptions", kReadWrite, "Comma list of the page sizes offered; it should contain RecordsPerPage."),
  Row<&S::RecordsPerPageSelectPlacement, settings::SetRecordsPerPageSelectPlacement>("RecordsPerPageSelectPlacement", kReadWrite, "Where the select for the page size goes: top or bottom."),
  Row<&S::DisplayExcelIcon>("DisplayExcelIcon", kReadWrite, "Shows the button that downloads the whole result as a spreadsheet."),
  Row<&S::ApplyCellFormattingToExcel>("ApplyCellFormattingToExcel", kReadWrite, "Applies the columns' format functions in the spreadsheet too."),
  Row<&S::ApplyCellFormattingToForm>("ApplyCellFormattingToForm", kReadWrite, "Applies the columns' format functions in the one-record view too."),
  Row<&S::ApplyColFormattingToForm>("ApplyColFormattingToForm", kReadWrite, "Applies GridColAttributes in the one-record view too."),
  Row<&S::MemoFieldLimit>("MemoFieldLimit", kReadWrite, "How many characters of a long text the grid shows; -1 for all, 0 for none."),
  Row<&S::FooterText>("FooterText", kReadWrite, "HTML below the view."),
  Row<&S::GridFreeFormatCellDataFieldDelimiter>("GridFreeFormatCellDataFieldDelimiter", kReadWrite, "Stands around field names in the templates of GridFreeFormatCellByCol."),
  Row<&S::GridFreeFormatCellColumnDelimiter>("GridFreeFormatCellColumnDelimiter", kReadWrite, "Separates the items of GridFreeFormatCell and the arguments of GridFormatCellFunction."),
  Row<&S::EditOptions, settings::SetEditOptions>("EditOptions", kReadWrite, "What visitors may do: ADD, UPDATE, DELETE, ALL for the three, NOVIEW to edit without the one-record view; read back in capitals."),
  Row<&S::EditPerformUpdates>("EditPerformUpdates", kReadWrite, "Carries out what visitors save and delete."),
  Row<&S::EditPrimaryKeys>("EditPrimaryKeys", kReadWrite, "Comma list of the fields that identify a record."),
  Row<&S::EditNewPKStatement>("EditNewPKStatement", kReadWrite, "Comma list, one item per key: a statement that yields a new key value, or autoincrement."),
  Row<&S::EditInsertToken>("EditInsertToken", kReadWrite, "On a hardened page, the column with a unique index that keeps the token of the add form, so that a form adds only one record however often it is posted; forms do not show it."),
  Row<&S::EditConfirmDeleteString>("EditConfirmDeleteString", kReadWrite, "The question asked before a record is deleted; empty asks nothing."),
  Row<&S::EditFieldsReadOnly>("EditFieldsReadOnly", kReadWrite, "Comma list of the fields that the edit form shows but does not change; * for all."),
  Row<&S::EditDetectConflicts>("EditDetectConflicts", kReadWrite, "Refuses to overwrite what somebody else has changed since the form was opened; Hardened does so too."),
  Row<&S::OnSave>("OnSave", kReadWrite, "A function that is given each change before it is written: it can set other values and refuse the change."),
  Row<&S::OnSaved>("OnSaved", kReadWrite, "A function that is given each change after it is written, in the same transaction."),
  Row<&S::OnDelete>("OnDelete", kReadWrite, "A function that is given each delete before it is carried out: it can refuse it."),
  Row<&S::TokenCallback>("TokenCallback", kReadWrite, "On a hardened page, a function that makes the token of the forms when it is given null, and tells whether a posted text is that token."),
  Row<&S::RequiredFieldIndicator>("RequiredFieldIndicator", kReadWrite, "HTML beside required fields."),
  kCurrentMode,
  TextSetterRow<settings::SetLanguageString>("LanguageString", "Comma list of twelve texts that replace the navigation texts."),
  TextSetterRow<settings::SetLanguageBtnString>("LanguageBtnString", "Comma list of five texts that replace the button captions."),
  TextSetterRow<settings::SetLangUpdString>("LangUpdString", "Comma list of three or four texts that replace the messages after a save or delete."),
  TextSetterRow<settings::SetGridFreeFormatCell>("GridFreeFormatCell", "All cell templates at once: column number, template, column number, template and so on."),
});

constexpr auto kDBConnectionProperties = std::to_array<Property<DBConnection>>({
  {.name = "Connection", .type = PropertyType::kObject, .access = kReadWrite,
   .doc = "The database connection; one that the page assigns stays the page's own.",
   .get = [](const DBConnection& owner) { return ToPropertyValue(owner.Connection()); },
   .set = [](DBConnection& owner, const PropertyValue& value) {
     owner.SetConnection(FromPropertyValue<std::shared_ptr<platform::Connection>>(value));
   },
   .object_class = "ADODB.Connection"},
  {.name = "DatabaseEngine", .type = PropertyType::kText, .access = kReadWrite,
   .doc = "The dialect: \"ORACLE\", \"SQLA\", \"MSSQL\" or \"ACCESS\"; any other name stands for \"ORACLE\"; set it after the connection string.",
   .get = [](const DBConnection& owner) -> PropertyValue { return std::string(owner.EngineName()); },
   .set = [](DBConnection& owner, const PropertyValue& value) {
     owner.SetEngineName(FromPropertyValue<std::string>(value));
   }},
});
// clang-format on

/// A setting of single columns; `Get` and `Set` take the settings and the column number.
template <auto Get, auto Set>
constexpr IndexedProperty ColumnRow(std::string_view name, std::string_view doc) {
  return {.name = name,
          .access = kReadWrite,
          .doc = doc,
          .get = [](DbView& view, std::int16_t column) -> platform::Variant {
            // While the view writes its page, reading is allowed, but a failure cannot be reported.
            std::string failure;
            std::string text(Get(view.GetSettings(), column, settings::ErrorReport(failure)));
            if (failure.empty()) return text;
            settings::Settings& settings = view.MutableSettings();
            return std::string(Get(settings, column, settings::OwnErrors(settings)));
          },
          .set = [](DbView& view, std::int16_t column,
                    std::string_view text) { Set(view.MutableSettings(), column, text); }};
}

constexpr IndexedProperty kEditRules{
    .name = "EditRules",
    .access = kReadWrite,
    .doc = "What a column of the form must hold, such as required,min=0,max=100; empty for anything.",
    .get = [](DbView& view, std::int16_t column) -> platform::Variant {
      const auto& rules = view.GetSettings().EditRules;
      const auto found = rules.find(column);
      return found == rules.end() ? std::string() : found->second;
    },
    .set = [](DbView& view, std::int16_t column,
              std::string_view text) { settings::SetEditRules(view.MutableSettings(), column, text); }};

// clang-format off
constexpr auto kIndexedProperties = std::to_array<IndexedProperty>({
  {.name = "CurrentRecord", .access = kReadOnly,
   .doc = "The value at a position, from 1, of the record that was shown last, of a grid its first; empty while a record is being added.",
   .get = [](DbView& view, std::int16_t index) { return view.CurrentRecord(index); },
   .set = nullptr},
  ColumnRow<settings::GridFreeFormatCellByCol, settings::SetGridFreeFormatCellByCol>("GridFreeFormatCellByCol", "The template of a column's cells; #Name# stands for the record's field Name."),
  ColumnRow<settings::GridFormatCellFunction, settings::SetGridFormatCellFunction>("GridFormatCellFunction", "The format function of a column's cells, such as FORMATNUMBER,2."),
  ColumnRow<settings::GridColAttributes, settings::SetGridColAttributes>("GridColAttributes", "Attributes of a column's data cells; column 0 is the record number."),
  ColumnRow<settings::GridColHeadAttributes, settings::SetGridColHeadAttributes>("GridColHeadAttributes", "Attributes of a column's header cell; column 0 is the record number."),
  kEditRules,
});
// clang-format on

}  // namespace

std::span<const Property<DbView>> DbViewProperties() { return kDbViewProperties; }

std::span<const Property<DBConnection>> DBConnectionProperties() { return kDBConnectionProperties; }

std::span<const IndexedProperty> DbViewIndexedProperties() { return kIndexedProperties; }

const Property<DbView>* FindDbViewProperty(std::string_view name) {
  // Programs write names as they are in the table: these are found without a copy in other letters.
  static const auto by_spelling = [] {
    std::unordered_map<std::string_view, const Property<DbView>*> rows;
    for (const auto& row : kDbViewProperties) rows.emplace(row.name, &row);
    return rows;
  }();
  if (const auto found = by_spelling.find(name); found != by_spelling.end()) return found->second;
  static const auto by_letters = [] {
    std::unordered_map<std::string, const Property<DbView>*> rows;
    for (const auto& row : kDbViewProperties) rows.emplace(text::ToUpper(row.name), &row);
    return rows;
  }();
  const auto found = by_letters.find(text::ToUpper(name));
  return found == by_letters.end() ? nullptr : found->second;
}

}  // namespace dralo::component
