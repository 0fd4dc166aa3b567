--TEST--
ADODB: an updatable recordset adds and changes rows; what fails changes nothing
--FILE--
<?php
require __DIR__ . '/shop.inc';

$connection = shop_connection();
$rows = new Dralo\Recordset();
$rows->CursorLocation = 3;
$rows->Open('SELECT * FROM Customers ORDER BY ID', $connection, 1, 3);
$rows->Fields['City']->Value = 'Stavanger';
$rows->Fields['Born']->Value = new DateTime('1985-05-06');
$rows->Update();
$rows->AddNew();
$rows->Fields['Name']->Value = "Dee 'd";
$rows->Fields['Balance']->Value = '2.50';
$rows->Update();
$rows->AddNew();
$rows->Fields['City']->Value = 'Nowhere';
try {
    $rows->Update();
} catch (Dralo\Exception $error) {
    echo $error->getMessage(), "\n";
}
$rows->CancelUpdate();
try_it(fn() => $rows->Fields['Born']->Value = 'no date');
try_it(fn() => $rows->Fields['Born']->Value = []);
$rows->Close();
for ($rows = $connection->Execute('SELECT * FROM Customers ORDER BY ID'); !$rows->EOF; $rows->MoveNext()) {
    foreach ($rows->Fields as $field) echo json_encode($field->Value), ' ';
    echo "\n";
}
$rows = $connection->Execute('SELECT * FROM Customers');
try {
    $rows->Fields['Name']->Value = 'changed';
} catch (Dralo\Exception $error) {
    var_dump(str_contains($error->getMessage(), 'read-only'), $rows->Fields['Name']->Value);
}
?>
--EXPECT--
NOT NULL constraint failed: Customers.Name
Dralo\Exception: The value for the field Born is not a date
TypeError: A database value must be null, bool, int, float, string or DateTimeInterface, array given
1 "Ann" "Stavanger" "1985-05-06" 12.5 
2 "Bob" null null -3 
3 "Cid & \"Co\"" "Oslo" "2000-12-31" null 
4 "Dee 'd" null null 2.5 
bool(true)
string(3) "Ann"
