<?php

/**
 * Declarations of the Dralo extension for editors and static analysers; never included by a page.
 * Printed by make_php_stub from the property tables: do not edit.
 */

namespace Dralo;

/** Makes an object by its programmatic identifier, such as "ADODB.Connection" or "Dralo.DbView", in any letter case. */
function CreateObject(string $ProgrammaticIdentifier): object {}

/** A failure of a database or of object creation; getCode() is the database's own number. */
class Exception extends \RuntimeException
{
    protected string $sqlState = "";
    protected string $source = "";

    /** Five characters such as "23000"; empty when the database has none. */
    final public function getSqlState(): string {}

    /** The statement that failed; empty when the failure has none. */
    final public function getSource(): string {}
}

/** Turns a database query into an interactive part of the page: a grid, a one-record view, edit and add forms. */
final class DbView
{
    /** The query of the grid; a text that does not begin with "SELECT " is run as a command; also becomes FormSQL and EditSQL where these are empty. */
    public string $sql;

    /** The query of the one-record view; setting it switches ApplyCellFormattingToForm and ApplyColFormattingToForm off. */
    public string $FormSQL;

    /** The query of the edit and add forms. */
    public string $EditSQL;

    /** The statement that deletes a record, without its WHERE, such as DELETE FROM Customers. */
    public string $DeleteSQL;

    /** Values for the ? of sql, in their order; used too when it is counted or downloaded, and for FormSQL and EditSQL while these are copies of it. */
    public array $SqlParameters;

    /** Values for the ? of FormSQL. */
    public array $FormSqlParameters;

    /** Values for the ? of EditSQL. */
    public array $EditSqlParameters;

    /** Values for the ? of DeleteSQL. */
    public array $DeleteSqlParameters;

    /** Carries the text of sql in the page, so that later requests use it. */
    public bool $PersistentSQL;

    /** A prepared command that is run instead of an SQL text. */
    public ?Command $StoredProcCommand;

    /** Connects to a database at once, on a new connection of the view's own. */
    public string $ConnectionString;

    /** A connection that several views share. */
    public ?DBConnection $DrConnection;

    /** An open recordset that is shown instead of a query; switches CountRecords off. Write-only. */
    public ?Recordset $ADORecordset;

    /** The interface language: "ENG", "GER" or "NOR" in capitals; other codes are ignored. */
    public string $Language;

    /** Language and country of dates, numbers and booleans, such as "de-DE"; empty for those of the process; set it before ConnectionString. */
    public string $Locale;

    /** One character that tells several views on a page apart; it is part of every request key and element id. */
    public string $Tag;

    /** "grid", "form", or "default", which shows the one-record view when RecordsPerPage is 1. */
    public string $DisplayType;

    /** Rows on a page of the grid; a value that is not below RecordsMaxLimit is ignored. */
    public int $RecordsPerPage;

    /** The highest record number that paging and export reach. */
    public int $RecordsMaxLimit;

    /** How many records there are; -1 while unknown; a value of 1 or more is not counted again. */
    public int $RecordCount;

    /** Counts the records before the page is written, for the counter and the last-page button. */
    public bool $CountRecords;

    /** The number of the first record shown; 0 before rendering and for an empty result. */
    public readonly int $FromRow;

    /** The number of the last record shown; 0 before rendering and for an empty result. */
    public readonly int $ToRow;

    /** The ORDER BY list: column names or numbers; clicks on the headers change it. */
    public string $OrderByFields;

    /** Sorts the last column of OrderByFields in descending order. */
    public bool $OrderByDesc;

    /** Writes the page's own posted fields back, so that they survive paging and sorting. */
    public bool $PersistPageFormRequest;

    /** Escapes values and trusts nothing that a visitor sends. */
    public bool $Hardened;

    /** Lets the forms of a hardened view show and change records that their own statements yield although sql does not. */
    public bool $RecordsOutsideSql;

    /** Writes CSS classes. */
    public bool $UseCSS;

    /** Writes the header row of the grid and the labels of the forms. */
    public bool $DisplayHeader;

    /** Shows the SQL above the view and in error messages, but not when Hardened; not for public pages. */
    public bool $DisplayDebug;

    /** What went wrong, as HTML with one line per failure; empty when nothing did; numbered public texts when Hardened. */
    public readonly string $ErrorMessage;

    /** What a hardened view keeps out of ErrorMessage, as text with one line per failure; for the page author alone. */
    public readonly string $ErrorDetail;

    /** The width of the whole view in the page, such as 100% or 600; quotes are removed. */
    public string $Width;

    /** Attributes of the grid's table. */
    public string $TableTag;

    /** More attributes of the grid's table, after those of TableTag. */
    public string $GridTableTag;

    /** Attributes of the table of a record, in the one-record view and in the forms. */
    public string $FormTableTag;

    /** Attributes of header cells. */
    public string $THTag;

    /** Attributes of data cells; ##Name## stands for the record's field Name. */
    public string $TDTag;

    /** Attributes of data cells in odd rows; ##Name## stands for the record's field Name. */
    public string $TDOddTag;

    /** Attributes of data cells in even rows; ##Name## stands for the record's field Name. */
    public string $TDEvenTag;

    /** Attributes of grid rows; ##Name## stands for the record's field Name. */
    public string $GridTRTag;

    /** Attributes of odd grid rows; ##Name## stands for the record's field Name. */
    public string $GridTROddTag;

    /** Attributes of even grid rows; ##Name## stands for the record's field Name. */
    public string $GridTREvenTag;

    /** Attributes of grid cells; ##Name## stands for the record's field Name. */
    public string $GridTDTag;

    /** Attributes of grid cells in odd rows; ##Name## stands for the record's field Name. */
    public string $GridTDOddTag;

    /** Attributes of grid cells in even rows; ##Name## stands for the record's field Name. */
    public string $GridTDEvenTag;

    /** Attributes of the value cells of the one-record view. */
    public string $FormTDTag;

    /** Comma list of column widths by position, such as 50,,30%. */
    public string $GridCellWidths;

    /** Comma list: in the one-record view the widths of labels and of values, in the edit and add forms the width of each label by position. */
    public string $FormCellWidths;

    /** Comma list of the columns that the grid shows, by name or number; empty shows all. */
    public string $GridFieldsShow;

    /** Comma list of the columns that the grid hides; when set, GridFieldsShow is ignored. */
    public string $GridFieldsHide;

    /** Comma list of the fields that the forms show; empty shows all. */
    public string $FormFieldsShow;

    /** Comma list of the fields that the forms hide; when set, FormFieldsShow is ignored. */
    public string $FormFieldsHide;

    /** Comma list of columns without a sort link; * for all. */
    public string $GridColsNoSort;

    /** Columns whose values are HTML by design, which a hardened page does not escape in the grid and the one-record view; "*" for all. */
    public string $GridColsHtml;

    /** Comma list of columns whose text stays on one line; * for all. */
    public string $GridCellsNoBr;

    /** Comma list of columns in which a value that repeats the row above is left blank. */
    public string $GridFieldsSupressDup;

    /** Comma list of the grid's captions by position; an empty item keeps the field name. */
    public string $GridDisplayFieldNames;

    /** Comma list of the forms' labels by position; an empty item keeps the field name. */
    public string $FormDisplayFieldNames;

    /** Shows the record number as the first column. */
    public bool $GridDisplayIndex;

    /** The number of the column that links to the one-record view; 0 makes the record number the link, which needs GridDisplayIndex. */
    public int $GridLinkIndex;

    /** The address of the folder with the images, with its closing slash. */
    public string $ImageDir;

    /** Where the navigation bar goes: top, bottom, both or none; at the top it needs a known record count. */
    public string $DisplayNavBar;

    /** What the bar counts: records, pages or both. */
    public string $DisplayNavBarTextOptions;

    /** Shows the first-page and last-page buttons; setting it to true switches CountRecords on. */
    public bool $DisplayNavBarFirstLastBtn;

    /** Shows the last-page button disabled. */
    public bool $DisableNavBarLastPageBtn;

    /** Shows the select for the page size. */
    public bool $DisplayRecordsPerPageSelect;

    /** Comma list of the page sizes offered; it should contain RecordsPerPage. */
    public string $RecordsPerPageOptions;

    /** Where the select for the page size goes: top or bottom. */
    public string $RecordsPerPageSelectPlacement;

    /** Shows the button that downloads the whole result as a spreadsheet. */
    public bool $DisplayExcelIcon;

    /** Applies the columns' format functions in the spreadsheet too. */
    public bool $ApplyCellFormattingToExcel;

    /** Applies the columns' format functions in the one-record view too. */
    public bool $ApplyCellFormattingToForm;

    /** Applies GridColAttributes in the one-record view too. */
    public bool $ApplyColFormattingToForm;

    /** How many characters of a long text the grid shows; -1 for all, 0 for none. */
    public int $MemoFieldLimit;

    /** HTML below the view. */
    public string $FooterText;

    /** Stands around field names in the templates of GridFreeFormatCellByCol. */
    public string $GridFreeFormatCellDataFieldDelimiter;

    /** Separates the items of GridFreeFormatCell and the arguments of GridFormatCellFunction. */
    public string $GridFreeFormatCellColumnDelimiter;

    /** What visitors may do: ADD, UPDATE, DELETE, ALL for the three, NOVIEW to edit without the one-record view; read back in capitals. */
    public string $EditOptions;

    /** Carries out what visitors save and delete. */
    public bool $EditPerformUpdates;

    /** Comma list of the fields that identify a record. */
    public string $EditPrimaryKeys;

    /** Comma list, one item per key: a statement that yields a new key value, or autoincrement. */
    public string $EditNewPKStatement;

    /** On a hardened page, the column with a unique index that keeps the token of the add form, so that a form adds only one record however often it is posted; forms do not show it. */
    public string $EditInsertToken;

    /** The question asked before a record is deleted; empty asks nothing. */
    public string $EditConfirmDeleteString;

    /** Comma list of the fields that the edit form shows but does not change; * for all. */
    public string $EditFieldsReadOnly;

    /** Refuses to overwrite what somebody else has changed since the form was opened; Hardened does so too. */
    public bool $EditDetectConflicts;

    /** A function that is given each change before it is written: it can set other values and refuse the change. */
    public mixed $OnSave;

    /** A function that is given each change after it is written, in the same transaction. */
    public mixed $OnSaved;

    /** A function that is given each delete before it is carried out: it can refuse it. */
    public mixed $OnDelete;

    /** On a hardened page, a function that makes the token of the forms when it is given null, and tells whether a posted text is that token. */
    public mixed $TokenCallback;

    /** HTML beside required fields. */
    public string $RequiredFieldIndicator;

    /** The view that the request selects: "grid", "formview", "formedit" or "formadd". */
    public readonly string $CurrentMode;

    /** Comma list of twelve texts that replace the navigation texts. Write-only. */
    public string $LanguageString;

    /** Comma list of five texts that replace the button captions. Write-only. */
    public string $LanguageBtnString;

    /** Comma list of three or four texts that replace the messages after a save or delete. Write-only. */
    public string $LangUpdString;

    /** All cell templates at once: column number, template, column number, template and so on. Write-only. */
    public string $GridFreeFormatCell;

    /** The value at a position, from 1, of the record that was shown last, of a grid its first; empty while a record is being added. */
    public readonly IndexedProperty $CurrentRecord;

    /** The template of a column's cells; #Name# stands for the record's field Name. */
    public readonly IndexedProperty $GridFreeFormatCellByCol;

    /** The format function of a column's cells, such as FORMATNUMBER,2. */
    public readonly IndexedProperty $GridFormatCellFunction;

    /** Attributes of a column's data cells; column 0 is the record number. */
    public readonly IndexedProperty $GridColAttributes;

    /** Attributes of a column's header cell; column 0 is the record number. */
    public readonly IndexedProperty $GridColHeadAttributes;

    /** What a column of the form must hold, such as required,min=0,max=100; empty for anything. */
    public readonly IndexedProperty $EditRules;

    /** The value at a position, from 1, of the record that was shown last, of a grid its first; empty while a record is being added. */
    public function CurrentRecord(int $Index): mixed {}

    /** The template of a column's cells; #Name# stands for the record's field Name. With a text it is set first. */
    public function GridFreeFormatCellByCol(int $Index, ?string $Text = null): string {}

    /** The format function of a column's cells, such as FORMATNUMBER,2. With a text it is set first. */
    public function GridFormatCellFunction(int $Index, ?string $Text = null): string {}

    /** Attributes of a column's data cells; column 0 is the record number. With a text it is set first. */
    public function GridColAttributes(int $Index, ?string $Text = null): string {}

    /** Attributes of a column's header cell; column 0 is the record number. With a text it is set first. */
    public function GridColHeadAttributes(int $Index, ?string $Text = null): string {}

    /** What a column of the form must hold, such as required,min=0,max=100; empty for anything. With a text it is set first. */
    public function EditRules(int $Index, ?string $Text = null): string {}

    /** Binds the view to a page that the script sends itself, before the view answers: nothing is printed and no header set then. */
    public function OnStartPage(Page $Page): void {}

    /** Reads the request, carries out a posted change, and writes the view that the request selects. Failures end up in ErrorMessage. */
    public function WriteHtmlTable(): void {}

    /** Carries out what the visitor has saved or deleted; called before the page writes anything. A hardened view that has changed something answers with the address that shows it, and the page ends. */
    public function ReceivePost(): void {}

    /** Connects, and writes the whole table or view of that name; the name goes into the statement as it is. */
    public function QHtmlTable(string $ConnectionString, string $TableName): void {}

    /** Shows a field of the edit form as a select list: the values of LinkField in the table, as the texts of DisplayField, in the order of OrderBy unless it is empty; AllowNulls adds an empty choice. No text may contain a comma. Of several lookups of a field the first counts. */
    public function AddEditLookup(string $FieldName, string $LookupTable, string $LinkField, string $DisplayField, string $OrderBy, bool $AllowNulls): void {}

    /** What AddEditLookup was given for the field, joined by commas and with 1 or 0 at the end; empty when it has no lookup. */
    public function EditLookupAsString(string $FieldName): string {}
}

/** One request and its answer, which the script sends itself: for frameworks, and for servers that run one script for many requests. */
final class Page
{
    /**
     * @param string $scriptName the address that links and the form lead back to
     * @param string $query what stands behind "?", as it came
     * @param string $body as it came
     * @param string $contentType that of the body, as the header says it
     * @param array<string, mixed> $server as $_SERVER: REQUEST_METHOD, HTTP_HOST, HTTP_ORIGIN, HTTP_SEC_FETCH_SITE and so on
     */
    public function __construct(string $scriptName, string $query = "", string $body = "", string $contentType = "application/x-www-form-urlencoded", array $server = []) {}

    /** The request that PHP answers. */
    public static function fromGlobals(?string $scriptName = null): Page {}

    /**
     * Hands on what views write, piece by piece, instead of collecting it; status and headers are complete by then.
     * @param null|callable(string, Page): mixed $receiver null collects again
     */
    public function sendTo(?callable $receiver): void {}

    /** What views have written so far. */
    public function body(): string {}

    public function status(): int {}

    /** @return array<string, string> */
    public function headers(): array {}

    /** Whether a download or an address that leads elsewhere is the whole answer: nothing may be put around body(). */
    public function ended(): bool {}
}

/** Lets several views on one page share one open database connection. */
final class DBConnection
{
    /** The database connection; one that the page assigns stays the page's own. */
    public ?Connection $Connection;

    /** The dialect: "ORACLE", "SQLA", "MSSQL" or "ACCESS"; any other name stands for "ORACLE"; set it after the connection string. */
    public string $DatabaseEngine;
}

/**
 * A property of a view that takes a column or field number: $view->GridColAttributes[3] = 'align="right"'.
 * @implements \ArrayAccess<int, mixed>
 */
final class IndexedProperty implements \ArrayAccess
{
    public function offsetExists(mixed $offset): bool {}

    public function offsetGet(mixed $offset): mixed {}

    public function offsetSet(mixed $offset, mixed $value): void {}

    public function offsetUnset(mixed $offset): void {}
}

/** What a visitor is about to do to a record, or has just done: given to OnSave, OnSaved and OnDelete, and over when they return. */
final class Change
{
    /** insert, update or delete. */
    public readonly string $Operation;

    /** The key fields by name; none of a record that is not inserted yet. */
    public readonly array $Key;

    /** The fields as they are stored, by name; none of an insert. */
    public readonly array $Old;

    /** The fields as they will be stored, by name; none of a delete. */
    public readonly array $Values;

    /** Stores another value, also in a field that the form does not show. */
    public function Set(string $Field, mixed $Value): void {}

    /** Nothing is written, and the message stands beside the field; "" is for the whole record. */
    public function Refuse(string $Field, string $Message): void {}
}

/** A connection to one database. */
final class Connection
{
    /** The list given to Open(), without a password; empty before. */
    public readonly string $ConnectionString;

    /** 1 while the connection is open, else 0. */
    public readonly int $State;

    /** Connects as the "key=value;" list says. */
    public function Open(string $ConnectionString, string $UserID = "", string $Password = "", int $Options = -1): void {}

    /**
     * Runs one statement. Returns its rows, or a closed recordset when it yields none.
     * @param int|null $RecordsAffected receives the number of rows changed, -1 when the database does not tell
     * @param int $Options -1 unspecified, 1 a statement even if it looks like a table name
     */
    public function Execute(string $CommandText, &$RecordsAffected = null, int $Options = -1): Recordset {}

    /** Gives the connection back; open recordsets on it are closed. */
    public function Close(): void {}
}

/** The rows of a query, read forward one at a time. */
final class Recordset
{
    /** For Open(). */
    public const CURSOR_FORWARD_ONLY = 0;

    /** For Open(); the one for adding and changing rows. */
    public const CURSOR_KEYSET = 1;

    /** For Open(). */
    public const CURSOR_DYNAMIC = 2;

    /** For Open(). */
    public const CURSOR_STATIC = 3;

    /** For Open(). */
    public const LOCK_READ_ONLY = 1;

    /** For Open(). */
    public const LOCK_PESSIMISTIC = 2;

    /** For Open(); the one for adding and changing rows. */
    public const LOCK_OPTIMISTIC = 3;

    /** For Open(). */
    public const LOCK_BATCH_OPTIMISTIC = 4;

    /** For CursorLocation. */
    public const LOCATION_SERVER = 2;

    /** For CursorLocation; the one for adding and changing rows. */
    public const LOCATION_CLIENT = 3;

    /** Whether there is no current row because the last one was passed. */
    public readonly bool $EOF;

    /** The highest number of rows the recordset yields; 0 means all. Set it before Open(). */
    public int $MaxRecords;

    /** 2 on the server, 3 on the client, which updates need. Set it before Open(). */
    public int $CursorLocation;

    /** 1 while the recordset is open, else 0. */
    public readonly int $State;

    /** The columns in the order of the query, by name in any letter case or by position from 0. */
    public readonly Fields $Fields;

    /**
     * Runs a statement, a bare table name or a command, and stands on the first row.
     * Rows can be added and changed with LOCATION_CLIENT, CURSOR_KEYSET and LOCK_OPTIMISTIC.
     * @param Connection|null $ActiveConnection of a statement; a command has its own
     * @param int $CursorType one of CURSOR_..., or -1 unspecified
     * @param int $LockType one of LOCK_..., or -1 unspecified
     * @param int $Options -1 unspecified, 1 a statement even if it looks like a table name
     */
    public function Open(Command|string $Source, ?Connection $ActiveConnection = null, int $CursorType = 0, int $LockType = 1, int $Options = -1): void {}

    /** Goes to the next row. */
    public function MoveNext(): void {}

    /** Starts a new row whose fields are null. */
    public function AddNew(): void {}

    /** Writes the new or changed row. */
    public function Update(): void {}

    /** Forgets the new row, or the changes of the current one. */
    public function CancelUpdate(): void {}

    /** Releases the statement and the connection. */
    public function Close(): void {}
}

/** A statement with its parameters, so that a visitor's input never becomes part of the text. */
final class Command
{
    /** For CommandType: a statement. */
    public const TYPE_TEXT = 1;

    /** For CommandType: the name of a table. */
    public const TYPE_TABLE = 2;

    /** For CommandType: the name of a stored procedure. */
    public const TYPE_STORED_PROCEDURE = 4;

    /** For CommandType: what the text looks like. */
    public const TYPE_UNKNOWN = 8;

    /** The connection that the statement runs on. */
    public ?Connection $ActiveConnection;

    /** The statement; each "?" stands for one of the parameters. */
    public string $CommandText;

    /** 1 a statement, 2 a table name, 4 a stored procedure, 8 unknown; -1 unspecified. */
    public int $CommandType;

    /** The values of the "?" in the statement, in their order; the first is number 0. */
    public readonly Parameters $Parameters;
}

/** One column of a recordset. */
final class Field
{
    /** The name of the column. */
    public readonly string $Name;

    /** The numeric data type, such as 3 for integers and 202 for text. */
    public readonly int $Type;

    /** A sum of bits; 32 means that the column may be null. */
    public readonly int $Attributes;

    /** Characters of a text column, bytes of others; 0 when the column declares none. */
    public readonly int $DefinedSize;

    /** Bytes of the current value; 0 for null. */
    public readonly int $ActualSize;

    /** The value in the current row: null, bool, int, float or string; a decimal is the exact string, a date-time "YYYY-MM-DD HH:MM:SS" ("YYYY-MM-DD" at midnight). Update() writes what was assigned. */
    public mixed $Value;
}

/**
 * The columns of a recordset, by name in any letter case or by position from 0.
 * @implements \ArrayAccess<int|string, Field>
 * @implements \IteratorAggregate<string, Field>
 */
final class Fields implements \ArrayAccess, \Countable, \IteratorAggregate
{
    public function offsetExists(mixed $offset): bool {}

    public function offsetGet(mixed $offset): mixed {}

    public function offsetSet(mixed $offset, mixed $value): void {}

    public function offsetUnset(mixed $offset): void {}

    public function count(): int {}

    public function getIterator(): \Iterator {}
}

/**
 * The parameters of a command, from number 0: $command->Parameters[] = $value adds one.
 * @implements \ArrayAccess<int, null|bool|int|float|string|\DateTimeInterface>
 * @implements \IteratorAggregate<int, null|bool|int|float|string>
 */
final class Parameters implements \ArrayAccess, \Countable, \IteratorAggregate
{
    public function offsetExists(mixed $offset): bool {}

    public function offsetGet(mixed $offset): mixed {}

    public function offsetSet(mixed $offset, mixed $value): void {}

    public function offsetUnset(mixed $offset): void {}

    public function count(): int {}

    public function getIterator(): \Iterator {}
}
