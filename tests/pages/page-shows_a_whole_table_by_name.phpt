--TEST--
Page: QHtmlTable writes what the property way writes
--FILE--
<?php
require __DIR__ . '/shop.inc';

$long = shop_view('SELECT * FROM Customers');
$short = new Dralo\DbView();
ob_start();
$short->QHtmlTable('Provider=SQLite;Data Source=' . shop_file(), 'Customers');
$html = ob_get_clean();
var_dump($html === html_of($long), strlen($html) > 1000, $short->sql, $short->ErrorMessage);
try_it(fn() => $short->QHtmlTable('x'));
try_it(fn() => $short->QHtmlTable([], 'x'));
try_it(fn() => $short->WriteHtmlTable(1));
?>
--EXPECT--
bool(true)
bool(true)
string(23) "SELECT * FROM Customers"
string(0) ""
ArgumentCountError: Dralo\DbView::QHtmlTable() expects exactly 2 arguments, 1 given
TypeError: Dralo\DbView::QHtmlTable(): Argument #1 ($ConnectionString) must be of type string, array given
ArgumentCountError: Dralo\DbView::WriteHtmlTable() expects exactly 0 arguments, 1 given
