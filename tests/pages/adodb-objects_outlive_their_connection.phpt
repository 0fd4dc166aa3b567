--TEST--
ADODB: objects kept after their connection was closed report it and never crash
--FILE--
<?php
require __DIR__ . '/shop.inc';

$connection = shop_connection();
$rows = $connection->Execute('SELECT ID, Name FROM Customers');
$fields = $rows->Fields;
$field = $fields['Name'];
$command = new Dralo\Command();
$command->ActiveConnection = $connection;
$command->CommandText = 'SELECT 1';
$connection->Close();
$connection->Close();
foreach ([
    fn() => $field->Value, fn() => $field->Name, fn() => $field->Value = 'x', fn() => $field->ActualSize,
    fn() => $fields[0], fn() => count($fields), fn() => isset($fields[0]), fn() => iterator_to_array($fields),
    fn() => $rows->EOF, fn() => $rows->MoveNext(), fn() => $rows->AddNew(), fn() => $rows->Update(), fn() => $rows->CancelUpdate(),
    fn() => $connection->Execute('SELECT 1'), fn() => (new Dralo\Recordset())->Open($command),
    fn() => (new Dralo\Recordset())->Open('SELECT 1', $connection),
] as $number => $use) {
    echo $number, ' ';
    try_it($use);
}
var_dump($rows, $field, $fields);
$rows->Close();

// Opened again with fewer columns, the old field is not there any more.
$connection->Open(str_replace(';Mode=ReadWriteCreate', '', 'Provider=SQLite;Data Source=' . shop_file()));
$rows->Open('SELECT ID FROM Customers', $connection);
try_it(fn() => $field->Value);
$rows = $connection = null;
try_it(fn() => $field->Value);
?>
--EXPECT--
0 Dralo\Exception: The recordset of this field is closed
1 Dralo\Exception: The recordset of this field is closed
2 Dralo\Exception: The recordset of this field is closed
3 Dralo\Exception: The recordset of this field is closed
4 Dralo\Exception: The recordset is closed
5 Dralo\Exception: The recordset is closed
6 Dralo\Exception: The recordset is closed
7 Dralo\Exception: The recordset is closed
8 Dralo\Exception: The recordset is closed
9 Dralo\Exception: The recordset is closed
10 Dralo\Exception: The recordset is closed
11 Dralo\Exception: The recordset is closed
12 Dralo\Exception: The recordset is closed
13 Dralo\Exception: The connection is closed
14 Dralo\Exception: The connection is closed
15 Dralo\Exception: The connection is closed
object(Dralo\Recordset)#3 (4) {
  ["MaxRecords"]=>
  int(0)
  ["CursorLocation"]=>
  int(2)
  ["State"]=>
  int(0)
  ["Fields"]=>
  object(Dralo\Fields)#4 (0) {
  }
}
object(Dralo\Field)#5 (0) {
}
object(Dralo\Fields)#4 (0) {
}
Dralo\Exception: The recordset does not have this field any more
Dralo\Exception: The recordset does not have this field any more
