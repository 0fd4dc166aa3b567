--TEST--
Property: every property of a new object has its default
--FILE--
<?php
foreach (['DbView', 'DBConnection', 'Connection', 'Recordset', 'Command'] as $class) {
    echo "== $class\n";
    foreach ((new ReflectionClass("Dralo\\$class"))->getProperties() as $property) {
        try {
            $value = $property->getValue(new ("Dralo\\$class")());
            echo $property->name, ' ', is_object($value) ? get_class($value) : json_encode($value, JSON_UNESCAPED_SLASHES), "\n";
        } catch (Throwable $error) {
            echo $property->name, ' (', $error->getMessage(), ")\n";
        }
    }
}
?>
--EXPECT--
== DbView
sql ""
FormSQL ""
EditSQL ""
DeleteSQL ""
SqlParameters []
FormSqlParameters []
EditSqlParameters []
DeleteSqlParameters []
PersistentSQL false
StoredProcCommand null
ConnectionString ""
DrConnection null
ADORecordset (Cannot read write-only property Dralo\DbView::$ADORecordset)
Language "ENG"
Locale ""
Tag "1"
DisplayType "default"
RecordsPerPage 20
RecordsMaxLimit 1000000
RecordCount -1
CountRecords true
FromRow 0
ToRow 0
OrderByFields ""
OrderByDesc false
PersistPageFormRequest true
Hardened false
RecordsOutsideSql false
UseCSS true
DisplayHeader true
DisplayDebug false
ErrorMessage ""
ErrorDetail ""
Width ""
TableTag "border=\"0\" cellspacing=\"0\""
GridTableTag ""
FormTableTag ""
THTag ""
TDTag ""
TDOddTag ""
TDEvenTag ""
GridTRTag ""
GridTROddTag ""
GridTREvenTag ""
GridTDTag ""
GridTDOddTag ""
GridTDEvenTag ""
FormTDTag ""
GridCellWidths ""
FormCellWidths ""
GridFieldsShow ""
GridFieldsHide ""
FormFieldsShow ""
FormFieldsHide ""
GridColsNoSort ""
GridColsHtml ""
GridCellsNoBr ""
GridFieldsSupressDup ""
GridDisplayFieldNames ""
FormDisplayFieldNames ""
GridDisplayIndex true
GridLinkIndex 0
ImageDir "../gfx/"
DisplayNavBar "bottom"
DisplayNavBarTextOptions "both"
DisplayNavBarFirstLastBtn true
DisableNavBarLastPageBtn false
DisplayRecordsPerPageSelect false
RecordsPerPageOptions "5,10,20,30,40,50,100,200"
RecordsPerPageSelectPlacement "top"
DisplayExcelIcon true
ApplyCellFormattingToExcel false
ApplyCellFormattingToForm true
ApplyColFormattingToForm true
MemoFieldLimit -1
FooterText ""
GridFreeFormatCellDataFieldDelimiter "#"
GridFreeFormatCellColumnDelimiter ","
EditOptions ""
EditPerformUpdates true
EditPrimaryKeys ""
EditNewPKStatement ""
EditInsertToken ""
EditConfirmDeleteString ""
EditFieldsReadOnly ""
EditDetectConflicts false
OnSave null
OnSaved null
OnDelete null
TokenCallback null
RequiredFieldIndicator "&nbsp;*&nbsp;"
CurrentMode "grid"
LanguageString (Cannot read write-only property Dralo\DbView::$LanguageString)
LanguageBtnString (Cannot read write-only property Dralo\DbView::$LanguageBtnString)
LangUpdString (Cannot read write-only property Dralo\DbView::$LangUpdString)
GridFreeFormatCell (Cannot read write-only property Dralo\DbView::$GridFreeFormatCell)
CurrentRecord Dralo\IndexedProperty
GridFreeFormatCellByCol Dralo\IndexedProperty
GridFormatCellFunction Dralo\IndexedProperty
GridColAttributes Dralo\IndexedProperty
GridColHeadAttributes Dralo\IndexedProperty
EditRules Dralo\IndexedProperty
== DBConnection
Connection Dralo\Connection
DatabaseEngine "ORACLE"
== Connection
ConnectionString ""
State 0
== Recordset
EOF (The recordset is closed)
MaxRecords 0
CursorLocation 2
State 0
Fields Dralo\Fields
== Command
ActiveConnection null
CommandText ""
CommandType -1
Parameters Dralo\Parameters
