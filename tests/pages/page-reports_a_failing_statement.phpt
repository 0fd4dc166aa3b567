--TEST--
Page: a statement that fails leaves a message in ErrorMessage, no warning, and a view that can be used again
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view('SELECT ID FROM Nowhere');
var_dump(html_of($view), $view->ErrorMessage);
$view->sql = 'SELECT ID FROM Customers WHERE ID = 3';
var_dump(str_contains(html_of($view), '>3</td>'));

$debugged = shop_view('SELECT Nothing FROM Customers');
$debugged->DisplayDebug = true;
var_dump(html_of($debugged), $debugged->ErrorMessage);

$unconnected = new Dralo\DbView();
$unconnected->sql = 'SELECT 1';
var_dump(html_of($unconnected), $unconnected->ErrorMessage);
try_it(fn() => (new Dralo\DbView())->QHtmlTable('Provider=SQLite;Data Source=' . __DIR__ . '/missing.db', 'Customers'));
?>
--EXPECT--
string(0) ""
string(45) "no such table: Nowhere in WriteHTMLTable.<br>"
bool(true)
string(0) ""
string(90) "near "Nothing": syntax error in WriteHTMLTable.<br>sql='SELECT Nothing FROM Customers'<br>"
string(0) ""
string(92) "There is no database connection: set ConnectionString or DrConnection in WriteHTMLTable.<br>"
Dralo\Exception: The database file ./missing.db does not exist or cannot be reached; Mode=ReadWriteCreate makes a new one
