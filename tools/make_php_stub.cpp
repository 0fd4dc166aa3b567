// Prints hosts/php/dralo.stub.php, which editors and static analysers read instead of the extension.
// Properties come from the property tables; the methods are written here, and a page test compares them with
// the extension.

#include <iostream>
#include <span>
#include <string>
#include <string_view>

#include "component/database_properties.h"
#include "component/property.h"
#include "hosts/php/class_constants.h"
#include "hosts/php/class_names.h"

namespace {

using dralo::component::Access;
using dralo::component::PropertyType;

constexpr std::string_view kHead = R"(<?php

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
)";

constexpr std::string_view kViewClass = R"(
/** Turns a database query into an interactive part of the page: a grid, a one-record view, edit and add forms. */
final class DbView
{)";

constexpr std::string_view kViewMethods = R"(
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
)";

constexpr std::string_view kPageClass = R"(
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
)";

constexpr std::string_view kDBConnectionClass = R"(
/** Lets several views on one page share one open database connection. */
final class DBConnection
{)";

constexpr std::string_view kConnectionClass = R"(
/** A connection to one database. */
final class Connection
{)";

constexpr std::string_view kConnectionMethods = R"(
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
)";

constexpr std::string_view kRecordsetClass = R"(
/** The rows of a query, read forward one at a time. */
final class Recordset
{)";

constexpr std::string_view kRecordsetMethods = R"(
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
)";

constexpr std::string_view kCommandClass = R"(
/** A statement with its parameters, so that a visitor's input never becomes part of the text. */
final class Command
{)";

constexpr std::string_view kFieldClass = R"(
/** One column of a recordset. */
final class Field
{)";

constexpr std::string_view kListMethods = R"(
    public function offsetExists(mixed $offset): bool {}

    public function offsetGet(mixed $offset): mixed {}

    public function offsetSet(mixed $offset, mixed $value): void {}

    public function offsetUnset(mixed $offset): void {}
)";

constexpr std::string_view kCountMethods = R"(
    public function count(): int {}

    public function getIterator(): \Iterator {}
)";

constexpr std::string_view kIndexedPropertyClass = R"(
/**
 * A property of a view that takes a column or field number: $view->GridColAttributes[3] = 'align="right"'.
 * @implements \ArrayAccess<int, mixed>
 */
final class IndexedProperty implements \ArrayAccess
{)";

constexpr std::string_view kChangeClass = R"(
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
)";

constexpr std::string_view kFieldsClass = R"(
/**
 * The columns of a recordset, by name in any letter case or by position from 0.
 * @implements \ArrayAccess<int|string, Field>
 * @implements \IteratorAggregate<string, Field>
 */
final class Fields implements \ArrayAccess, \Countable, \IteratorAggregate
{)";

constexpr std::string_view kParametersClass = R"(
/**
 * The parameters of a command, from number 0: $command->Parameters[] = $value adds one.
 * @implements \ArrayAccess<int, null|bool|int|float|string|\DateTimeInterface>
 * @implements \IteratorAggregate<int, null|bool|int|float|string>
 */
final class Parameters implements \ArrayAccess, \Countable, \IteratorAggregate
{)";

std::string PhpType(PropertyType type, std::string_view object_class) {
  switch (type) {
    case PropertyType::kText:
      return "string";
    case PropertyType::kBoolean:
      return "bool";
    case PropertyType::kInteger:
    case PropertyType::kLong:
      return "int";
    case PropertyType::kList:
      return "array";
    case PropertyType::kHandler:
    case PropertyType::kTokenCallback:
      return "mixed";
    case PropertyType::kObject:
      break;
  }
  return std::string("?").append(dralo::php::PhpName(object_class));
}

void PrintProperty(std::string_view doc, bool is_read_only, std::string_view type, std::string_view name) {
  std::cout << "\n    /** " << doc << " */\n    public " << (is_read_only ? "readonly " : "") << type << " $"
            << name << ";\n";
}

template <class Row>
void PrintProperties(std::span<const Row> rows) {
  for (const Row& row : rows) {
    std::string doc(row.doc);
    if (row.access == Access::kWriteOnly) doc += " Write-only.";
    PrintProperty(doc, row.set == nullptr, PhpType(row.type, row.object_class), row.name);
  }
}

/// A list has the class that its property is named after.
void PrintList(const dralo::component::DescribedProperty& list) {
  PrintProperty(list.doc, true, list.name, list.name);
}

void PrintIndexedProperties() {
  for (const auto& row : dralo::component::DbViewIndexedProperties()) {
    PrintProperty(row.doc, true, "IndexedProperty", row.name);
  }
  for (const auto& row : dralo::component::DbViewIndexedProperties()) {
    std::cout << "\n    /** " << row.doc << (row.set == nullptr ? "" : " With a text it is set first.")
              << " */\n    public function " << row.name
              << (row.set == nullptr ? "(int $Index): mixed {}\n"
                                     : "(int $Index, ?string $Text = null): string {}\n");
  }
}

constexpr std::string_view kEndOfClass = "}\n";

void PrintConstants(std::string_view php_class) {
  for (const auto& constant : dralo::php::kClassConstants) {
    if (constant.php_class != php_class) continue;
    std::cout << "\n    /** " << constant.doc << " */\n    public const " << constant.name << " = "
              << constant.value << ";\n";
  }
}

void PrintViewClasses() {
  std::cout << kViewClass;
  PrintProperties(dralo::component::DbViewProperties());
  PrintIndexedProperties();
  std::cout << kViewMethods << kEndOfClass << kPageClass << kEndOfClass << kDBConnectionClass;
  PrintProperties(dralo::component::DBConnectionProperties());
  std::cout << kEndOfClass << kIndexedPropertyClass << kListMethods << kEndOfClass << kChangeClass
            << kEndOfClass;
}

void PrintDatabaseClasses() {
  std::cout << kConnectionClass;
  PrintProperties(dralo::component::ConnectionProperties());
  std::cout << kConnectionMethods << kEndOfClass << kRecordsetClass;
  PrintConstants("Recordset");
  PrintProperties(dralo::component::RecordsetProperties());
  PrintList(dralo::component::kFieldsProperty);
  std::cout << kRecordsetMethods << kEndOfClass << kCommandClass;
  PrintConstants("Command");
  PrintProperties(dralo::component::CommandProperties());
  PrintList(dralo::component::kParametersProperty);
  std::cout << kEndOfClass << kFieldClass;
  PrintProperties(dralo::component::FieldProperties());
  const auto& value = dralo::component::kFieldValueProperty;
  PrintProperty(value.doc, false, "mixed", value.name);
  std::cout << kEndOfClass << kFieldsClass << kListMethods << kCountMethods << kEndOfClass << kParametersClass
            << kListMethods << kCountMethods << kEndOfClass;
}

}  // namespace

int main() {
  std::cout << kHead;
  PrintViewClasses();
  PrintDatabaseClasses();
  return std::cout.flush() ? 0 : 1;
}
