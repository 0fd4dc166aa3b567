--TEST--
Change: exit in OnSaved ends the page and undoes the save
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
register_shutdown_function(function () use ($view) {
    $rows = $view->DrConnection->Connection->Execute('SELECT Name FROM Customers WHERE ID=1');
    echo $rows->Fields[0]->Value, "\n";
});
$view->OnSaved = function () { exit("The end\n"); };
html_of($view);
echo strip_tags($view->ErrorMessage), "\n";
$rows = $view->DrConnection->Connection->Execute(
    'SELECT count(*), max(Name), max(Balance), (SELECT max(Entry) FROM Audit) FROM Customers WHERE ID=1');
foreach ($rows->Fields as $field) echo json_encode($field->Value), ' ';
echo "\n";
?>
--EXPECT--
The end
Ann
