--TEST--
Change: OnSave sets fields that the form does not show, and OnSaved writes with them
--CGI--
--POST--
Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1FormUpdate=Save&Morvu1_Form_ID=1&Morvu1_Form_Name=Eve&Morvu1_Form_City=Rome
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view('SELECT ID, Name, City, Balance FROM Customers');
$view->EditOptions = 'UPDATE DELETE';
$view->EditPrimaryKeys = 'ID';
$view->DeleteSQL = 'DELETE FROM Customers';
$view->FormFieldsHide = 'Balance';
$view->DrConnection->Connection->Execute('CREATE TABLE Audit (Entry TEXT)');
$view->OnSave = fn(Dralo\Change $change) => $change->Set("balance", 99.5);
$view->OnSaved = function (Dralo\Change $change) use ($view) {
    $view->DrConnection->Connection->Execute("INSERT INTO Audit VALUES ('saved {$change->Key['ID']} {$change->Values['Balance']}')");
};
html_of($view);
echo strip_tags($view->ErrorMessage), "\n";
$rows = $view->DrConnection->Connection->Execute(
    'SELECT count(*), max(Name), max(Balance), (SELECT max(Entry) FROM Audit) FROM Customers WHERE ID=1');
foreach ($rows->Fields as $field) echo json_encode($field->Value), ' ';
echo "\n";
?>
--EXPECT--

1 "Eve" 99.5 "saved 1 99.5" 
