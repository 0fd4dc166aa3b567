--TEST--
Change: OnDelete refuses a delete
--CGI--
--POST--
Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormDelete=Delete&Morvu1_Form_ID=1
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view('SELECT ID, Name, City, Balance FROM Customers');
$view->EditOptions = 'UPDATE DELETE';
$view->EditPrimaryKeys = 'ID';
$view->DeleteSQL = 'DELETE FROM Customers';
$view->FormFieldsHide = 'Balance';
$view->DrConnection->Connection->Execute('CREATE TABLE Audit (Entry TEXT)');
$told = '';
$view->OnDelete = function (Dralo\Change $change) use (&$told) {
    $told = "$change->Operation " . json_encode($change->Values) . " {$change->Old['Name']}\n";
    $change->Refuse("", "Never");
};
html_of($view);
echo $told;
echo strip_tags($view->ErrorMessage), "\n";
$rows = $view->DrConnection->Connection->Execute(
    'SELECT count(*), max(Name), max(Balance), (SELECT max(Entry) FROM Audit) FROM Customers WHERE ID=1');
foreach ($rows->Fields as $field) echo json_encode($field->Value), ' ';
echo "\n";
?>
--EXPECT--
delete [] Ann

1 "Ann" 12.5 null 
