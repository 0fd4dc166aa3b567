--TEST--
Lookups: added and read back by field name, in any letter case
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = new Dralo\DbView();
var_dump($view->EditLookupAsString('CustomerID'));
var_dump($view->AddEditLookup('CustomerID', 'Customers', 'ID', 'Name', 'Name', true));
$view->addeditlookup(FieldName: 'CityID', LookupTable: 'Cities', LinkField: 'Code', DisplayField: 'City', OrderBy: '', AllowNulls: false);
$view->AddEditLookup('customerid', 'Second', 'ID', 'Name', '', 1);
var_dump($view->EditLookupAsString('customerID'), $view->editlookupasstring('CityID'), $view->EditLookupAsString('Größe'));
$view->AddEditLookup('Größe', 'Größen', 'ID', 'Name', '', false);
var_dump($view->EditLookupAsString('GRÖßE'));
var_dump($view->ErrorMessage);

$other = new Dralo\DbView();
var_dump($other->EditLookupAsString('CustomerID'));

try_it(fn() => $view->AddEditLookup('CustomerID', 'Customers', 'ID', 'Name', 'Name'));
try_it(fn() => $view->AddEditLookup('CustomerID', [], 'ID', 'Name', 'Name', true));
try_it(fn() => $view->AddEditLookup('CustomerID', 'Customers', 'ID', 'Name', 'Name', 'yes', 7));
try_it(fn() => $view->AddEditLookup('CustomerID', 'Customers', 'ID', 'Name', 'Name', []));
try_it(fn() => $view->EditLookupAsString());
try_it(function () use ($view) { $view->EditLookupAsString = 'x'; });
?>
--EXPECT--
string(0) ""
NULL
string(35) "CustomerID,Customers,ID,Name,Name,1"
string(26) "CityID,Cities,Code,City,,0"
string(0) ""
string(27) "Größe,Größen,ID,Name,,0"
string(0) ""
string(0) ""
ArgumentCountError: Dralo\DbView::AddEditLookup() expects exactly 6 arguments, 5 given
TypeError: Dralo\DbView::AddEditLookup(): Argument #2 ($LookupTable) must be of type string, array given
ArgumentCountError: Dralo\DbView::AddEditLookup() expects exactly 6 arguments, 7 given
TypeError: Dralo\DbView::AddEditLookup(): Argument #6 ($AllowNulls) must be of type bool, array given
ArgumentCountError: Dralo\DbView::EditLookupAsString() expects exactly 1 argument, 0 given
Error: Cannot create dynamic property Dralo\DbView::$EditLookupAsString
