--TEST--
Property: a value that cannot be converted is a TypeError that names the property, and changes nothing
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = new Dralo\DbView();
$set = fn(string $name, mixed $value) => try_it(function () use ($view, $name, $value) {
    $view->$name = $value;
});
$set('RecordsPerPage', 'many');
$set('RecordsPerPage', []);
$set('RecordsPerPage', null);
$set('RecordsPerPage', 1e30);
$set('GridLinkIndex', 32768);
$set('GridLinkIndex', -32769);
$set('RecordsMaxLimit', 2147483648);
$set('RecordCount', -2147483649);
$set('sql', []);
$set('sql', null);
$set('sql', new stdClass());
$set('UseCSS', []);
$set('UseCSS', null);
$set('DrConnection', new Dralo\Connection());
$set('DrConnection', 'shared');
$set('StoredProcCommand', new Dralo\Recordset());
$set('recordSPERpage', 'many');
var_dump($view->RecordsPerPage, $view->GridLinkIndex, $view->RecordsMaxLimit, $view->RecordCount, $view->sql, $view->UseCSS, $view->DrConnection);
$object = new Dralo\Recordset(); try_it(fn() => $object->MaxRecords = -1);
$object = new Dralo\Recordset(); try_it(fn() => $object->CursorLocation = 4);
$object = new Dralo\Command(); try_it(fn() => $object->CommandType = 3);
?>
--EXPECT--
TypeError: Cannot assign string to property Dralo\DbView::$RecordsPerPage of type int
TypeError: Cannot assign array to property Dralo\DbView::$RecordsPerPage of type int
TypeError: Cannot assign null to property Dralo\DbView::$RecordsPerPage of type int
TypeError: Cannot assign float to property Dralo\DbView::$RecordsPerPage of type int
TypeError: Dralo\DbView::$GridLinkIndex must be a whole number from -32768 to 32767
TypeError: Dralo\DbView::$GridLinkIndex must be a whole number from -32768 to 32767
TypeError: Dralo\DbView::$RecordsMaxLimit must be a whole number from -2147483648 to 2147483647
TypeError: Dralo\DbView::$RecordCount must be a whole number from -2147483648 to 2147483647
TypeError: Cannot assign array to property Dralo\DbView::$sql of type string
TypeError: Cannot assign null to property Dralo\DbView::$sql of type string
TypeError: Cannot assign stdClass to property Dralo\DbView::$sql of type string
TypeError: Cannot assign array to property Dralo\DbView::$UseCSS of type bool
TypeError: Cannot assign null to property Dralo\DbView::$UseCSS of type bool
TypeError: Cannot assign Dralo\Connection to property Dralo\DbView::$DrConnection of type ?Dralo\DBConnection
TypeError: Cannot assign string to property Dralo\DbView::$DrConnection of type ?Dralo\DBConnection
TypeError: Cannot assign Dralo\Recordset to property Dralo\DbView::$StoredProcCommand of type ?Dralo\Command
TypeError: Cannot assign string to property Dralo\DbView::$RecordsPerPage of type int
int(20)
int(0)
int(1000000)
int(-1)
string(0) ""
bool(true)
NULL
TypeError: Dralo\Recordset::$MaxRecords must not be negative
TypeError: Dralo\Recordset::$CursorLocation must be one of 2, 3
TypeError: Dralo\Command::$CommandType must be one of -1, 1, 2, 4, 8
