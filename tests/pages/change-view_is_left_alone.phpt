--TEST--
Change: while the function runs its view cannot be changed or written
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
$told = '';
$view->OnSave = function (Dralo\Change $change) use ($view, &$told) {
    ob_start();
    try_it(fn() => $view->EditPrimaryKeys = "Name");
    try_it(fn() => $view->WriteHtmlTable());
    try_it(fn() => $view->AddEditLookup("City", "Customers", "City", "City", "", true));
    $told = ob_get_clean() . "$view->EditPrimaryKeys\n";
    $change->Refuse("", "No");
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
Dralo\Exception: The view is writing its page and cannot be changed
Dralo\Exception: The view is writing its page and cannot be changed
Dralo\Exception: The view is writing its page and cannot be changed
ID

1 "Ann" 12.5 null 
