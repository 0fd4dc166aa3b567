#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "dralo/change.h"
#include "dralo/command.h"
#include "dralo/recordset.h"
#include "dralo/token_callback.h"
#include "platform/environment.h"
#include "platform/page_connection.h"
#include "settings/language.h"
#include "settings/lookup_list.h"

namespace dralo::settings {

/// Settings of single columns, such as their templates: a list of column numbers and, for its k-th item (from
/// 1), the number again in values[2k-2] and the setting in values[2k-1].
struct ColumnStore {
  std::string index_list;  ///< Column numbers in decimal joined by ","; empty when no column has a setting.
  std::vector<std::string> values;
};

/// What a visitor may do with records.
struct EditPermissions {
  bool add = false;
  bool update = false;
  bool remove = false;
  bool save = false;        ///< "UPDATE" was assigned in capitals: nothing is written otherwise.
  bool skips_view = false;  ///< "NOVIEW": forms open for editing at once.
};

/// Which view a page shows when a request asks for none.
enum class DisplayKind { kGrid, kForm, kFormWhenOnePerPage };

/// Where a part of the page goes.
struct Placement {
  bool top = false;
  bool bottom = false;
};

/// What the navigation bar counts.
struct Counters {
  bool records = true;
  bool pages = true;
};

/// What a page has set on a view, with the defaults. Members that are properties have the property's name.
/// They are written only by their setters; but state::Commit() writes the page size, the query, its order,
/// the counts and the row numbers that a rendering has found.
struct Settings {
  // The query.
  std::string sql = "";
  std::string FormSQL = "";
  std::string EditSQL = "";
  std::string DeleteSQL = "";
  std::vector<platform::Variant> SqlParameters;
  std::vector<platform::Variant> FormSqlParameters;
  std::vector<platform::Variant> EditSqlParameters;
  std::vector<platform::Variant> DeleteSqlParameters;
  bool PersistentSQL = false;
  std::shared_ptr<platform::Command> StoredProcCommand;
  std::string ConnectionString = "";
  std::shared_ptr<platform::PageConnection> DrConnection;
  std::shared_ptr<platform::Recordset> ADORecordset;

  // Views, records and paging.
  std::string Tag = "1";
  std::string DisplayType = "default";
  std::int16_t RecordsPerPage = 20;
  std::int32_t RecordsMaxLimit = 1'000'000;
  std::int32_t RecordCount = -1;
  bool CountRecords = true;
  std::int32_t FromRow = 0;
  std::int32_t ToRow = 0;
  std::string OrderByFields = "";
  bool OrderByDesc = false;
  bool PersistPageFormRequest = true;
  bool Hardened = false;
  bool RecordsOutsideSql = false;

  // The look of the whole page.
  bool UseCSS = true;
  bool DisplayHeader = true;
  bool DisplayDebug = false;
  std::string ErrorMessage = "";
  std::string ErrorDetail = "";
  std::string Width = "";
  std::string TableTag = R"(border="0" cellspacing="0")";
  std::string GridTableTag = "";
  std::string FormTableTag = "";
  std::string THTag = "";
  std::string TDTag = "";
  std::string TDOddTag = "";
  std::string TDEvenTag = "";
  std::string GridTRTag = "";
  std::string GridTROddTag = "";
  std::string GridTREvenTag = "";
  std::string GridTDTag = "";
  std::string GridTDOddTag = "";
  std::string GridTDEvenTag = "";
  std::string FormTDTag = "";
  std::string FooterText = "";

  // Lists of columns.
  std::string GridCellWidths = "";
  std::string FormCellWidths = "";
  std::string GridFieldsShow = "";
  std::string GridFieldsHide = "";
  std::string FormFieldsShow = "";
  std::string FormFieldsHide = "";
  std::string GridColsNoSort = "";
  std::string GridCellsNoBr = "";
  std::string GridColsHtml = "";
  std::string GridFieldsSupressDup = "";
  std::string GridDisplayFieldNames = "";
  std::string FormDisplayFieldNames = "";
  bool GridDisplayIndex = true;
  std::int16_t GridLinkIndex = 0;

  // The navigation bar.
  std::string ImageDir = "../gfx/";
  std::string DisplayNavBar = "bottom";
  std::string DisplayNavBarTextOptions = "both";
  bool DisplayNavBarFirstLastBtn = true;
  bool DisableNavBarLastPageBtn = false;
  bool DisplayRecordsPerPageSelect = false;
  std::string RecordsPerPageOptions = "5,10,20,30,40,50,100,200";
  std::string RecordsPerPageSelectPlacement = "top";
  bool DisplayExcelIcon = true;

  // Cells.
  bool ApplyCellFormattingToExcel = false;
  bool ApplyCellFormattingToForm = true;
  bool ApplyColFormattingToForm = true;
  std::int32_t MemoFieldLimit = -1;
  std::string GridFreeFormatCellDataFieldDelimiter = "#";
  std::string GridFreeFormatCellColumnDelimiter = ",";
  ColumnStore GridFreeFormatCellByCol;
  ColumnStore GridFormatCellFunction;
  ColumnStore GridColAttributes;
  ColumnStore GridColHeadAttributes;

  // Editing.
  std::string EditOptions = "";
  bool EditPerformUpdates = true;
  std::string EditPrimaryKeys = "";
  std::string EditNewPKStatement = "";
  std::string EditInsertToken = "";
  std::string EditConfirmDeleteString = "";
  std::string EditFieldsReadOnly = "";
  bool EditDetectConflicts = false;
  std::map<std::int16_t, std::string> EditRules;  ///< By the number of the column, from 1.
  std::shared_ptr<platform::ChangeHandler> OnSave;
  std::shared_ptr<platform::ChangeHandler> OnSaved;
  std::shared_ptr<platform::ChangeHandler> OnDelete;
  std::shared_ptr<platform::TokenCallback> TokenCallback;
  std::string RequiredFieldIndicator = "&nbsp;*&nbsp;";
  LookupList lookups;  ///< What AddEditLookup added.

  std::string Locale = "";
  platform::Environment* locale_environment = nullptr;  ///< The one of Locale; nullptr for the process's own.

  // Interface language.
  std::string Language = "ENG";
  std::shared_ptr<const LanguageTables> language_tables = BuiltInTables("ENG");

  // What setters prepare for the rendering.
  bool has_stored_procedure = false;    ///< StoredProcCommand is run instead of an SQL text.
  bool has_supplied_recordset = false;  ///< ADORecordset is shown and nothing is opened.
  bool owns_connection = false;         ///< DrConnection was made by the ConnectionString setter.
  EditPermissions edit;                 ///< What EditOptions says.
  DisplayKind display = DisplayKind::kFormWhenOnePerPage;  ///< What DisplayType says.
  Placement bar = {.bottom = true};                        ///< What DisplayNavBar says.
  Counters counters;                                       ///< What DisplayNavBarTextOptions says.
  Placement page_size_select = {.top = true};              ///< What RecordsPerPageSelectPlacement says.
};

}  // namespace dralo::settings
