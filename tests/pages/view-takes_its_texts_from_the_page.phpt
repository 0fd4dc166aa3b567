--TEST--
View: write-only properties take effect and are left out of every listing
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view('SELECT ID, Name FROM Customers WHERE ID = 1');
$texts = ['LanguageString' => 'a,b,c,d,e,f,g,of,i,j,k,sheet', 'GridFreeFormatCell' => '2,<i>#Name#</i>'];
foreach ($texts as $name => $text) {
    $view->$name = $text;
    try_it(fn() => $view->$name);
    var_dump(isset($view->$name), array_key_exists($name, get_object_vars($view)), property_exists($view, $name));
}
$html = html_of($view);
var_dump(str_contains($html, '<i>Ann</i>'), str_contains($html, 'sheet 1 of 1'), $view->ErrorMessage);
try_it(function () use ($view) { $view->LanguageString = []; });
?>
--EXPECT--
Error: Cannot read write-only property Dralo\DbView::$LanguageString
bool(false)
bool(false)
bool(true)
Error: Cannot read write-only property Dralo\DbView::$GridFreeFormatCell
bool(false)
bool(false)
bool(true)
bool(true)
bool(true)
string(0) ""
TypeError: Cannot assign array to property Dralo\DbView::$LanguageString of type string
