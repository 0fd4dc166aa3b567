--TEST--
Change: handlers are functions or null, and what was set is read back
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = new Dralo\DbView();
var_dump($view->OnSave);
$view->OnSave = $function = fn() => 1;
var_dump($view->OnSave === $function);
$view->onsave = 'strtoupper';
var_dump($view->OnSave);
try_it(fn() => $view->OnSave = 'no function');
try_it(fn() => $view->OnSave = 7);
var_dump($view->OnSave);
$view->OnSave = null;
var_dump($view->OnSave);
// Its function holds the view: the page end lets both go.
$view->OnDelete = function () use ($view) {};
?>
--EXPECT--
NULL
bool(true)
string(10) "strtoupper"
TypeError: Dralo\DbView::$OnSave must be a function or null
TypeError: Dralo\DbView::$OnSave must be a function or null
string(10) "strtoupper"
NULL
