--TEST--
ADODB: a page reads rows by field name and position, in any letter case
--FILE--
<?php
require __DIR__ . '/shop.inc';

$connection = shop_connection();
var_dump($connection->State, str_starts_with($connection->connectionstring, 'Provider=SQLite;'));
$rows = $connection->Execute('SELECT * FROM Customers ORDER BY ID', $affected);
var_dump(get_class($rows), $affected, count($rows->Fields));
while (!$rows->EOF) {
    foreach ($rows->Fields as $name => $field) echo $name, '=', json_encode($field->Value), ' ';
    echo "\n";
    $rows->MoveNext();
}
try_it(fn() => $rows->MoveNext());
$rows->Close();
var_dump($rows->State);

$rows->Open('SELECT ID, ID AS ID, Name FROM Customers', $connection);
foreach ($rows->Fields as $name => $field) {
    echo "$name: $field->Name, type $field->Type, attributes $field->Attributes, size $field->DefinedSize, now $field->ActualSize\n";
}
var_dump($rows->fields['NAME']->value, $rows->Fields[2]->Value, $rows->Fields['name']->Name);
var_dump(isset($rows->Fields['City']), isset($rows->Fields['id']), isset($rows->Fields[3]), isset($rows->Fields[-1]), $rows->Fields['City']->Value ?? 'none');
try_it(fn() => $rows->Fields['City']);
try_it(fn() => $rows->Fields[3]);
try_it(fn() => $rows->Fields[1.5]);
try_it(function () use ($rows) { $rows->Fields[0] = 1; });
try_it(function () use ($rows) { unset($rows->Fields[0]); });
try_it(function () use ($rows) { $rows->Fields[] = 1; });

$limited = new Dralo\Recordset();
$limited->MaxRecords = 2;
$limited->Open('Customers', $connection);
for ($count = 0; !$limited->eof; $limited->movenext()) $count++;
var_dump($count);

$connection->Execute("UPDATE Customers SET City = 'Oslo' WHERE ID < 3", $affected);
var_dump($affected);

$rows = $connection->Execute("SELECT 7 AS \"\u{2c65}\u{3c2}\"");
var_dump($rows->Fields["\u{23a}\u{3a3}"]->Value, isset($rows->Fields["\u{23a}s"]));
?>
--EXPECT--
int(1)
bool(true)
string(15) "Dralo\Recordset"
int(0)
int(5)
ID=1 Name="Ann" City="Bergen" Born="1990-01-02" Balance=12.5 
ID=2 Name="Bob" City=null Born=null Balance=-3 
ID=3 Name="Cid & \"Co\"" City="Oslo" Born="2000-12-31" Balance=null 
Dralo\Exception: There is no next record; the recordset is at its end
int(0)
ID: ID, type 3, attributes 0, size 0, now 8
ID: ID, type 3, attributes 0, size 0, now 8
Name: Name, type 202, attributes 0, size 20, now 3
string(3) "Ann"
string(3) "Ann"
string(4) "Name"
bool(false)
bool(true)
bool(false)
bool(false)
string(4) "none"
Dralo\Exception: The recordset has no such field
Dralo\Exception: The recordset has no such field
TypeError: A field is found by its name or by its position from 0
Error: Cannot replace an entry of Dralo\Fields
Error: Cannot unset an entry of Dralo\Fields
Error: Cannot replace an entry of Dralo\Fields
int(2)
int(2)
int(7)
bool(false)
