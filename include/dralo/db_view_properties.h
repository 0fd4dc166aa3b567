#pragma once

// Printed by make_cpp_properties from the property tables: do not edit.

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "dralo/change.h"
#include "dralo/command.h"
#include "dralo/db_connection.h"
#include "dralo/property_owner.h"
#include "dralo/recordset.h"
#include "dralo/token_callback.h"
#include "dralo/variant.h"

namespace dralo {

/// The properties of a view, each with a function that reads it and one that sets it. Those that read return
/// copies. Those that set throw std::invalid_argument, naming the property, when the value does not fit, and
/// Error when setting reaches a database that fails. Threads and lifetime are those of the view.
// clang-format off
class DbViewProperties : public IndexedPropertyOwner {
 public:
  /// The query of the grid; a text that does not begin with "SELECT " is run as a command; also becomes FormSQL and EditSQL where these are empty.
  std::string Sql() const { return Typed<std::string>("sql"); }
  void SetSql(std::string_view value) { SetTyped("sql", value); }  ///< Sets Sql().
  /// The query of the one-record view; setting it switches ApplyCellFormattingToForm and ApplyColFormattingToForm off.
  std::string FormSQL() const { return Typed<std::string>("FormSQL"); }
  void SetFormSQL(std::string_view value) { SetTyped("FormSQL", value); }  ///< Sets FormSQL().
  /// The query of the edit and add forms.
  std::string EditSQL() const { return Typed<std::string>("EditSQL"); }
  void SetEditSQL(std::string_view value) { SetTyped("EditSQL", value); }  ///< Sets EditSQL().
  /// The statement that deletes a record, without its WHERE, such as DELETE FROM Customers.
  std::string DeleteSQL() const { return Typed<std::string>("DeleteSQL"); }
  void SetDeleteSQL(std::string_view value) { SetTyped("DeleteSQL", value); }  ///< Sets DeleteSQL().
  /// Values for the ? of sql, in their order; used too when it is counted or downloaded, and for FormSQL and EditSQL while these are copies of it.
  std::vector<Variant> SqlParameters() const { return Typed<std::vector<Variant>>("SqlParameters"); }
  void SetSqlParameters(std::vector<Variant> value) { SetTyped("SqlParameters", std::move(value)); }  ///< Sets SqlParameters().
  /// Values for the ? of FormSQL.
  std::vector<Variant> FormSqlParameters() const { return Typed<std::vector<Variant>>("FormSqlParameters"); }
  void SetFormSqlParameters(std::vector<Variant> value) { SetTyped("FormSqlParameters", std::move(value)); }  ///< Sets FormSqlParameters().
  /// Values for the ? of EditSQL.
  std::vector<Variant> EditSqlParameters() const { return Typed<std::vector<Variant>>("EditSqlParameters"); }
  void SetEditSqlParameters(std::vector<Variant> value) { SetTyped("EditSqlParameters", std::move(value)); }  ///< Sets EditSqlParameters().
  /// Values for the ? of DeleteSQL.
  std::vector<Variant> DeleteSqlParameters() const { return Typed<std::vector<Variant>>("DeleteSqlParameters"); }
  void SetDeleteSqlParameters(std::vector<Variant> value) { SetTyped("DeleteSqlParameters", std::move(value)); }  ///< Sets DeleteSqlParameters().
  /// Carries the text of sql in the page, so that later requests use it.
  bool PersistentSQL() const { return Typed<bool>("PersistentSQL"); }
  void SetPersistentSQL(bool value) { SetTyped("PersistentSQL", value); }  ///< Sets PersistentSQL().
  /// A prepared command that is run instead of an SQL text.
  std::shared_ptr<dralo::Command> StoredProcCommand() const { return Typed<std::shared_ptr<dralo::Command>>("StoredProcCommand"); }
  void SetStoredProcCommand(const std::shared_ptr<dralo::Command>& value) { SetTyped("StoredProcCommand", value); }  ///< Sets StoredProcCommand().
  /// Connects to a database at once, on a new connection of the view's own.
  std::string ConnectionString() const { return Typed<std::string>("ConnectionString"); }
  void SetConnectionString(std::string_view value) { SetTyped("ConnectionString", value); }  ///< Sets ConnectionString().
  /// A connection that several views share.
  std::shared_ptr<dralo::DBConnection> DrConnection() const { return Typed<std::shared_ptr<dralo::DBConnection>>("DrConnection"); }
  void SetDrConnection(const std::shared_ptr<dralo::DBConnection>& value) { SetTyped("DrConnection", value); }  ///< Sets DrConnection().
  /// An open recordset that is shown instead of a query; switches CountRecords off.
  void SetADORecordset(const std::shared_ptr<dralo::Recordset>& value) { SetTyped("ADORecordset", value); }
  /// The interface language: "ENG", "GER" or "NOR" in capitals; other codes are ignored.
  std::string Language() const { return Typed<std::string>("Language"); }
  void SetLanguage(std::string_view value) { SetTyped("Language", value); }  ///< Sets Language().
  /// Language and country of dates, numbers and booleans, such as "de-DE"; empty for those of the process; set it before ConnectionString.
  std::string Locale() const { return Typed<std::string>("Locale"); }
  void SetLocale(std::string_view value) { SetTyped("Locale", value); }  ///< Sets Locale().
  /// One character that tells several views on a page apart; it is part of every request key and element id.
  std::string Tag() const { return Typed<std::string>("Tag"); }
  void SetTag(std::string_view value) { SetTyped("Tag", value); }  ///< Sets Tag().
  /// "grid", "form", or "default", which shows the one-record view when RecordsPerPage is 1.
  std::string DisplayType() const { return Typed<std::string>("DisplayType"); }
  void SetDisplayType(std::string_view value) { SetTyped("DisplayType", value); }  ///< Sets DisplayType().
  /// Rows on a page of the grid; a value that is not below RecordsMaxLimit is ignored.
  std::int16_t RecordsPerPage() const { return Typed<std::int16_t>("RecordsPerPage"); }
  void SetRecordsPerPage(std::int16_t value) { SetTyped("RecordsPerPage", value); }  ///< Sets RecordsPerPage().
  /// The highest record number that paging and export reach.
  std::int32_t RecordsMaxLimit() const { return Typed<std::int32_t>("RecordsMaxLimit"); }
  void SetRecordsMaxLimit(std::int32_t value) { SetTyped("RecordsMaxLimit", value); }  ///< Sets RecordsMaxLimit().
  /// How many records there are; -1 while unknown; a value of 1 or more is not counted again.
  std::int32_t RecordCount() const { return Typed<std::int32_t>("RecordCount"); }
  void SetRecordCount(std::int32_t value) { SetTyped("RecordCount", value); }  ///< Sets RecordCount().
  /// Counts the records before the page is written, for the counter and the last-page button.
  bool CountRecords() const { return Typed<bool>("CountRecords"); }
  void SetCountRecords(bool value) { SetTyped("CountRecords", value); }  ///< Sets CountRecords().
  /// The number of the first record shown; 0 before rendering and for an empty result.
  std::int32_t FromRow() const { return Typed<std::int32_t>("FromRow"); }
  /// The number of the last record shown; 0 before rendering and for an empty result.
  std::int32_t ToRow() const { return Typed<std::int32_t>("ToRow"); }
  /// The ORDER BY list: column names or numbers; clicks on the headers change it.
  std::string OrderByFields() const { return Typed<std::string>("OrderByFields"); }
  void SetOrderByFields(std::string_view value) { SetTyped("OrderByFields", value); }  ///< Sets OrderByFields().
  /// Sorts the last column of OrderByFields in descending order.
  bool OrderByDesc() const { return Typed<bool>("OrderByDesc"); }
  void SetOrderByDesc(bool value) { SetTyped("OrderByDesc", value); }  ///< Sets OrderByDesc().
  /// Writes the page's own posted fields back, so that they survive paging and sorting.
  bool PersistPageFormRequest() const { return Typed<bool>("PersistPageFormRequest"); }
  void SetPersistPageFormRequest(bool value) { SetTyped("PersistPageFormRequest", value); }  ///< Sets PersistPageFormRequest().
  /// Escapes values and trusts nothing that a visitor sends.
  bool Hardened() const { return Typed<bool>("Hardened"); }
  void SetHardened(bool value) { SetTyped("Hardened", value); }  ///< Sets Hardened().
  /// Lets the forms of a hardened view show and change records that their own statements yield although sql does not.
  bool RecordsOutsideSql() const { return Typed<bool>("RecordsOutsideSql"); }
  void SetRecordsOutsideSql(bool value) { SetTyped("RecordsOutsideSql", value); }  ///< Sets RecordsOutsideSql().
  /// Writes CSS classes.
  bool UseCSS() const { return Typed<bool>("UseCSS"); }
  void SetUseCSS(bool value) { SetTyped("UseCSS", value); }  ///< Sets UseCSS().
  /// Writes the header row of the grid and the labels of the forms.
  bool DisplayHeader() const { return Typed<bool>("DisplayHeader"); }
  void SetDisplayHeader(bool value) { SetTyped("DisplayHeader", value); }  ///< Sets DisplayHeader().
  /// Shows the SQL above the view and in error messages, but not when Hardened; not for public pages.
  bool DisplayDebug() const { return Typed<bool>("DisplayDebug"); }
  void SetDisplayDebug(bool value) { SetTyped("DisplayDebug", value); }  ///< Sets DisplayDebug().
  /// What went wrong, as HTML with one line per failure; empty when nothing did; numbered public texts when Hardened.
  std::string ErrorMessage() const { return Typed<std::string>("ErrorMessage"); }
  /// What a hardened view keeps out of ErrorMessage, as text with one line per failure; for the page author alone.
  std::string ErrorDetail() const { return Typed<std::string>("ErrorDetail"); }
  /// The width of the whole view in the page, such as 100% or 600; quotes are removed.
  std::string Width() const { return Typed<std::string>("Width"); }
  void SetWidth(std::string_view value) { SetTyped("Width", value); }  ///< Sets Width().
  /// Attributes of the grid's table.
  std::string TableTag() const { return Typed<std::string>("TableTag"); }
  void SetTableTag(std::string_view value) { SetTyped("TableTag", value); }  ///< Sets TableTag().
  /// More attributes of the grid's table, after those of TableTag.
  std::string GridTableTag() const { return Typed<std::string>("GridTableTag"); }
  void SetGridTableTag(std::string_view value) { SetTyped("GridTableTag", value); }  ///< Sets GridTableTag().
  /// Attributes of the table of a record, in the one-record view and in the forms.
  std::string FormTableTag() const { return Typed<std::string>("FormTableTag"); }
  void SetFormTableTag(std::string_view value) { SetTyped("FormTableTag", value); }  ///< Sets FormTableTag().
  /// Attributes of header cells.
  std::string THTag() const { return Typed<std::string>("THTag"); }
  void SetTHTag(std::string_view value) { SetTyped("THTag", value); }  ///< Sets THTag().
  /// Attributes of data cells; ##Name## stands for the record's field Name.
  std::string TDTag() const { return Typed<std::string>("TDTag"); }
  void SetTDTag(std::string_view value) { SetTyped("TDTag", value); }  ///< Sets TDTag().
  /// Attributes of data cells in odd rows; ##Name## stands for the record's field Name.
  std::string TDOddTag() const { return Typed<std::string>("TDOddTag"); }
  void SetTDOddTag(std::string_view value) { SetTyped("TDOddTag", value); }  ///< Sets TDOddTag().
  /// Attributes of data cells in even rows; ##Name## stands for the record's field Name.
  std::string TDEvenTag() const { return Typed<std::string>("TDEvenTag"); }
  void SetTDEvenTag(std::string_view value) { SetTyped("TDEvenTag", value); }  ///< Sets TDEvenTag().
  /// Attributes of grid rows; ##Name## stands for the record's field Name.
  std::string GridTRTag() const { return Typed<std::string>("GridTRTag"); }
  void SetGridTRTag(std::string_view value) { SetTyped("GridTRTag", value); }  ///< Sets GridTRTag().
  /// Attributes of odd grid rows; ##Name## stands for the record's field Name.
  std::string GridTROddTag() const { return Typed<std::string>("GridTROddTag"); }
  void SetGridTROddTag(std::string_view value) { SetTyped("GridTROddTag", value); }  ///< Sets GridTROddTag().
  /// Attributes of even grid rows; ##Name## stands for the record's field Name.
  std::string GridTREvenTag() const { return Typed<std::string>("GridTREvenTag"); }
  void SetGridTREvenTag(std::string_view value) { SetTyped("GridTREvenTag", value); }  ///< Sets GridTREvenTag().
  /// Attributes of grid cells; ##Name## stands for the record's field Name.
  std::string GridTDTag() const { return Typed<std::string>("GridTDTag"); }
  void SetGridTDTag(std::string_view value) { SetTyped("GridTDTag", value); }  ///< Sets GridTDTag().
  /// Attributes of grid cells in odd rows; ##Name## stands for the record's field Name.
  std::string GridTDOddTag() const { return Typed<std::string>("GridTDOddTag"); }
  void SetGridTDOddTag(std::string_view value) { SetTyped("GridTDOddTag", value); }  ///< Sets GridTDOddTag().
  /// Attributes of grid cells in even rows; ##Name## stands for the record's field Name.
  std::string GridTDEvenTag() const { return Typed<std::string>("GridTDEvenTag"); }
  void SetGridTDEvenTag(std::string_view value) { SetTyped("GridTDEvenTag", value); }  ///< Sets GridTDEvenTag().
  /// Attributes of the value cells of the one-record view.
  std::string FormTDTag() const { return Typed<std::string>("FormTDTag"); }
  void SetFormTDTag(std::string_view value) { SetTyped("FormTDTag", value); }  ///< Sets FormTDTag().
  /// Comma list of column widths by position, such as 50,,30%.
  std::string GridCellWidths() const { return Typed<std::string>("GridCellWidths"); }
  void SetGridCellWidths(std::string_view value) { SetTyped("GridCellWidths", value); }  ///< Sets GridCellWidths().
  /// Comma list: in the one-record view the widths of labels and of values, in the edit and add forms the width of each label by position.
  std::string FormCellWidths() const { return Typed<std::string>("FormCellWidths"); }
  void SetFormCellWidths(std::string_view value) { SetTyped("FormCellWidths", value); }  ///< Sets FormCellWidths().
  /// Comma list of the columns that the grid shows, by name or number; empty shows all.
  std::string GridFieldsShow() const { return Typed<std::string>("GridFieldsShow"); }
  void SetGridFieldsShow(std::string_view value) { SetTyped("GridFieldsShow", value); }  ///< Sets GridFieldsShow().
  /// Comma list of the columns that the grid hides; when set, GridFieldsShow is ignored.
  std::string GridFieldsHide() const { return Typed<std::string>("GridFieldsHide"); }
  void SetGridFieldsHide(std::string_view value) { SetTyped("GridFieldsHide", value); }  ///< Sets GridFieldsHide().
  /// Comma list of the fields that the forms show; empty shows all.
  std::string FormFieldsShow() const { return Typed<std::string>("FormFieldsShow"); }
  void SetFormFieldsShow(std::string_view value) { SetTyped("FormFieldsShow", value); }  ///< Sets FormFieldsShow().
  /// Comma list of the fields that the forms hide; when set, FormFieldsShow is ignored.
  std::string FormFieldsHide() const { return Typed<std::string>("FormFieldsHide"); }
  void SetFormFieldsHide(std::string_view value) { SetTyped("FormFieldsHide", value); }  ///< Sets FormFieldsHide().
  /// Comma list of columns without a sort link; * for all.
  std::string GridColsNoSort() const { return Typed<std::string>("GridColsNoSort"); }
  void SetGridColsNoSort(std::string_view value) { SetTyped("GridColsNoSort", value); }  ///< Sets GridColsNoSort().
  /// Columns whose values are HTML by design, which a hardened page does not escape in the grid and the one-record view; "*" for all.
  std::string GridColsHtml() const { return Typed<std::string>("GridColsHtml"); }
  void SetGridColsHtml(std::string_view value) { SetTyped("GridColsHtml", value); }  ///< Sets GridColsHtml().
  /// Comma list of columns whose text stays on one line; * for all.
  std::string GridCellsNoBr() const { return Typed<std::string>("GridCellsNoBr"); }
  void SetGridCellsNoBr(std::string_view value) { SetTyped("GridCellsNoBr", value); }  ///< Sets GridCellsNoBr().
  /// Comma list of columns in which a value that repeats the row above is left blank.
  std::string GridFieldsSupressDup() const { return Typed<std::string>("GridFieldsSupressDup"); }
  void SetGridFieldsSupressDup(std::string_view value) { SetTyped("GridFieldsSupressDup", value); }  ///< Sets GridFieldsSupressDup().
  /// Comma list of the grid's captions by position; an empty item keeps the field name.
  std::string GridDisplayFieldNames() const { return Typed<std::string>("GridDisplayFieldNames"); }
  void SetGridDisplayFieldNames(std::string_view value) { SetTyped("GridDisplayFieldNames", value); }  ///< Sets GridDisplayFieldNames().
  /// Comma list of the forms' labels by position; an empty item keeps the field name.
  std::string FormDisplayFieldNames() const { return Typed<std::string>("FormDisplayFieldNames"); }
  void SetFormDisplayFieldNames(std::string_view value) { SetTyped("FormDisplayFieldNames", value); }  ///< Sets FormDisplayFieldNames().
  /// Shows the record number as the first column.
  bool GridDisplayIndex() const { return Typed<bool>("GridDisplayIndex"); }
  void SetGridDisplayIndex(bool value) { SetTyped("GridDisplayIndex", value); }  ///< Sets GridDisplayIndex().
  /// The number of the column that links to the one-record view; 0 makes the record number the link, which needs GridDisplayIndex.
  std::int16_t GridLinkIndex() const { return Typed<std::int16_t>("GridLinkIndex"); }
  void SetGridLinkIndex(std::int16_t value) { SetTyped("GridLinkIndex", value); }  ///< Sets GridLinkIndex().
  /// The address of the folder with the images, with its closing slash.
  std::string ImageDir() const { return Typed<std::string>("ImageDir"); }
  void SetImageDir(std::string_view value) { SetTyped("ImageDir", value); }  ///< Sets ImageDir().
  /// Where the navigation bar goes: top, bottom, both or none; at the top it needs a known record count.
  std::string DisplayNavBar() const { return Typed<std::string>("DisplayNavBar"); }
  void SetDisplayNavBar(std::string_view value) { SetTyped("DisplayNavBar", value); }  ///< Sets DisplayNavBar().
  /// What the bar counts: records, pages or both.
  std::string DisplayNavBarTextOptions() const { return Typed<std::string>("DisplayNavBarTextOptions"); }
  void SetDisplayNavBarTextOptions(std::string_view value) { SetTyped("DisplayNavBarTextOptions", value); }  ///< Sets DisplayNavBarTextOptions().
  /// Shows the first-page and last-page buttons; setting it to true switches CountRecords on.
  bool DisplayNavBarFirstLastBtn() const { return Typed<bool>("DisplayNavBarFirstLastBtn"); }
  void SetDisplayNavBarFirstLastBtn(bool value) { SetTyped("DisplayNavBarFirstLastBtn", value); }  ///< Sets DisplayNavBarFirstLastBtn().
  /// Shows the last-page button disabled.
  bool DisableNavBarLastPageBtn() const { return Typed<bool>("DisableNavBarLastPageBtn"); }
  void SetDisableNavBarLastPageBtn(bool value) { SetTyped("DisableNavBarLastPageBtn", value); }  ///< Sets DisableNavBarLastPageBtn().
  /// Shows the select for the page size.
  bool DisplayRecordsPerPageSelect() const { return Typed<bool>("DisplayRecordsPerPageSelect"); }
  void SetDisplayRecordsPerPageSelect(bool value) { SetTyped("DisplayRecordsPerPageSelect", value); }  ///< Sets DisplayRecordsPerPageSelect().
  /// Comma list of the page sizes offered; it should contain RecordsPerPage.
  std::string RecordsPerPageOptions() const { return Typed<std::string>("RecordsPerPageOptions"); }
  void SetRecordsPerPageOptions(std::string_view value) { SetTyped("RecordsPerPageOptions", value); }  ///< Sets RecordsPerPageOptions().
  /// Where the select for the page size goes: top or bottom.
  std::string RecordsPerPageSelectPlacement() const { return Typed<std::string>("RecordsPerPageSelectPlacement"); }
  void SetRecordsPerPageSelectPlacement(std::string_view value) { SetTyped("RecordsPerPageSelectPlacement", value); }  ///< Sets RecordsPerPageSelectPlacement().
  /// Shows the button that downloads the whole result as a spreadsheet.
  bool DisplayExcelIcon() const { return Typed<bool>("DisplayExcelIcon"); }
  void SetDisplayExcelIcon(bool value) { SetTyped("DisplayExcelIcon", value); }  ///< Sets DisplayExcelIcon().
  /// Applies the columns' format functions in the spreadsheet too.
  bool ApplyCellFormattingToExcel() const { return Typed<bool>("ApplyCellFormattingToExcel"); }
  void SetApplyCellFormattingToExcel(bool value) { SetTyped("ApplyCellFormattingToExcel", value); }  ///< Sets ApplyCellFormattingToExcel().
  /// Applies the columns' format functions in the one-record view too.
  bool ApplyCellFormattingToForm() const { return Typed<bool>("ApplyCellFormattingToForm"); }
  void SetApplyCellFormattingToForm(bool value) { SetTyped("ApplyCellFormattingToForm", value); }  ///< Sets ApplyCellFormattingToForm().
  /// Applies GridColAttributes in the one-record view too.
  bool ApplyColFormattingToForm() const { return Typed<bool>("ApplyColFormattingToForm"); }
  void SetApplyColFormattingToForm(bool value) { SetTyped("ApplyColFormattingToForm", value); }  ///< Sets ApplyColFormattingToForm().
  /// How many characters of a long text the grid shows; -1 for all, 0 for none.
  std::int32_t MemoFieldLimit() const { return Typed<std::int32_t>("MemoFieldLimit"); }
  void SetMemoFieldLimit(std::int32_t value) { SetTyped("MemoFieldLimit", value); }  ///< Sets MemoFieldLimit().
  /// HTML below the view.
  std::string FooterText() const { return Typed<std::string>("FooterText"); }
  void SetFooterText(std::string_view value) { SetTyped("FooterText", value); }  ///< Sets FooterText().
  /// Stands around field names in the templates of GridFreeFormatCellByCol.
  std::string GridFreeFormatCellDataFieldDelimiter() const { return Typed<std::string>("GridFreeFormatCellDataFieldDelimiter"); }
  void SetGridFreeFormatCellDataFieldDelimiter(std::string_view value) { SetTyped("GridFreeFormatCellDataFieldDelimiter", value); }  ///< Sets GridFreeFormatCellDataFieldDelimiter().
  /// Separates the items of GridFreeFormatCell and the arguments of GridFormatCellFunction.
  std::string GridFreeFormatCellColumnDelimiter() const { return Typed<std::string>("GridFreeFormatCellColumnDelimiter"); }
  void SetGridFreeFormatCellColumnDelimiter(std::string_view value) { SetTyped("GridFreeFormatCellColumnDelimiter", value); }  ///< Sets GridFreeFormatCellColumnDelimiter().
  /// What visitors may do: ADD, UPDATE, DELETE, ALL for the three, NOVIEW to edit without the one-record view; read back in capitals.
  std::string EditOptions() const { return Typed<std::string>("EditOptions"); }
  void SetEditOptions(std::string_view value) { SetTyped("EditOptions", value); }  ///< Sets EditOptions().
  /// Carries out what visitors save and delete.
  bool EditPerformUpdates() const { return Typed<bool>("EditPerformUpdates"); }
  void SetEditPerformUpdates(bool value) { SetTyped("EditPerformUpdates", value); }  ///< Sets EditPerformUpdates().
  /// Comma list of the fields that identify a record.
  std::string EditPrimaryKeys() const { return Typed<std::string>("EditPrimaryKeys"); }
  void SetEditPrimaryKeys(std::string_view value) { SetTyped("EditPrimaryKeys", value); }  ///< Sets EditPrimaryKeys().
  /// Comma list, one item per key: a statement that yields a new key value, or autoincrement.
  std::string EditNewPKStatement() const { return Typed<std::string>("EditNewPKStatement"); }
  void SetEditNewPKStatement(std::string_view value) { SetTyped("EditNewPKStatement", value); }  ///< Sets EditNewPKStatement().
  /// On a hardened page, the column with a unique index that keeps the token of the add form, so that a form adds only one record however often it is posted; forms do not show it.
  std::string EditInsertToken() const { return Typed<std::string>("EditInsertToken"); }
  void SetEditInsertToken(std::string_view value) { SetTyped("EditInsertToken", value); }  ///< Sets EditInsertToken().
  /// The question asked before a record is deleted; empty asks nothing.
  std::string EditConfirmDeleteString() const { return Typed<std::string>("EditConfirmDeleteString"); }
  void SetEditConfirmDeleteString(std::string_view value) { SetTyped("EditConfirmDeleteString", value); }  ///< Sets EditConfirmDeleteString().
  /// Comma list of the fields that the edit form shows but does not change; * for all.
  std::string EditFieldsReadOnly() const { return Typed<std::string>("EditFieldsReadOnly"); }
  void SetEditFieldsReadOnly(std::string_view value) { SetTyped("EditFieldsReadOnly", value); }  ///< Sets EditFieldsReadOnly().
  /// Refuses to overwrite what somebody else has changed since the form was opened; Hardened does so too.
  bool EditDetectConflicts() const { return Typed<bool>("EditDetectConflicts"); }
  void SetEditDetectConflicts(bool value) { SetTyped("EditDetectConflicts", value); }  ///< Sets EditDetectConflicts().
  /// A function that is given each change before it is written: it can set other values and refuse the change.
  void SetOnSave(std::function<void(Change&)> value) { SetTyped("OnSave", MakeHandler(std::move(value))); }
  /// A function that is given each change after it is written, in the same transaction.
  void SetOnSaved(std::function<void(Change&)> value) { SetTyped("OnSaved", MakeHandler(std::move(value))); }
  /// A function that is given each delete before it is carried out: it can refuse it.
  void SetOnDelete(std::function<void(Change&)> value) { SetTyped("OnDelete", MakeHandler(std::move(value))); }
  /// On a hardened page, a function that makes the token of the forms when it is given null, and tells whether a posted text is that token.
  void SetTokenCallback(std::function<Variant(const Variant&)> value) { SetTyped("TokenCallback", MakeTokenCallback(std::move(value))); }
  /// HTML beside required fields.
  std::string RequiredFieldIndicator() const { return Typed<std::string>("RequiredFieldIndicator"); }
  void SetRequiredFieldIndicator(std::string_view value) { SetTyped("RequiredFieldIndicator", value); }  ///< Sets RequiredFieldIndicator().
  /// The view that the request selects: "grid", "formview", "formedit" or "formadd".
  std::string CurrentMode() const { return Typed<std::string>("CurrentMode"); }
  /// Comma list of twelve texts that replace the navigation texts.
  void SetLanguageString(std::string_view value) { SetTyped("LanguageString", value); }
  /// Comma list of five texts that replace the button captions.
  void SetLanguageBtnString(std::string_view value) { SetTyped("LanguageBtnString", value); }
  /// Comma list of three or four texts that replace the messages after a save or delete.
  void SetLangUpdString(std::string_view value) { SetTyped("LangUpdString", value); }
  /// All cell templates at once: column number, template, column number, template and so on.
  void SetGridFreeFormatCell(std::string_view value) { SetTyped("GridFreeFormatCell", value); }
  /// The value at a position, from 1, of the record that was shown last, of a grid its first; empty while a record is being added.
  Variant CurrentRecord(std::int16_t number) { return GetAt("CurrentRecord", number); }
  /// The template of a column's cells; #Name# stands for the record's field Name.
  std::string GridFreeFormatCellByCol(std::int16_t number) { return TextAt("GridFreeFormatCellByCol", number); }
  void SetGridFreeFormatCellByCol(std::int16_t number, std::string_view text) { SetAt("GridFreeFormatCellByCol", number, text); }  ///< Sets GridFreeFormatCellByCol().
  /// The format function of a column's cells, such as FORMATNUMBER,2.
  std::string GridFormatCellFunction(std::int16_t number) { return TextAt("GridFormatCellFunction", number); }
  void SetGridFormatCellFunction(std::int16_t number, std::string_view text) { SetAt("GridFormatCellFunction", number, text); }  ///< Sets GridFormatCellFunction().
  /// Attributes of a column's data cells; column 0 is the record number.
  std::string GridColAttributes(std::int16_t number) { return TextAt("GridColAttributes", number); }
  void SetGridColAttributes(std::int16_t number, std::string_view text) { SetAt("GridColAttributes", number, text); }  ///< Sets GridColAttributes().
  /// Attributes of a column's header cell; column 0 is the record number.
  std::string GridColHeadAttributes(std::int16_t number) { return TextAt("GridColHeadAttributes", number); }
  void SetGridColHeadAttributes(std::int16_t number, std::string_view text) { SetAt("GridColHeadAttributes", number, text); }  ///< Sets GridColHeadAttributes().
  /// What a column of the form must hold, such as required,min=0,max=100; empty for anything.
  std::string EditRules(std::int16_t number) { return TextAt("EditRules", number); }
  void SetEditRules(std::int16_t number, std::string_view text) { SetAt("EditRules", number, text); }  ///< Sets EditRules().
};
// clang-format on

}  // namespace dralo
