--TEST--
Property: under strict_types only values of the property's type are taken, and bools by numbers
--FILE--
<?php
declare(strict_types=1);
require __DIR__ . '/shop.inc';

$view = new Dralo\DbView();
try_it(fn() => $view->RecordsPerPage = '15');
try_it(fn() => $view->RecordsPerPage = 15.0);
try_it(fn() => $view->RecordCount = true);
try_it(fn() => $view->UseCSS = 1);
try_it(fn() => $view->Tag = 7);
try_it(fn() => $view->GridLinkIndex = true);
try_it(fn() => $view->RecordsPerPage = 15);
?>
--EXPECTF--
TypeError: Cannot assign string to property Dralo\DbView::$RecordsPerPage of type int
TypeError: Cannot assign float to property Dralo\DbView::$RecordsPerPage of type int
nothing thrown
TypeError: Cannot assign int to property Dralo\DbView::$UseCSS of type bool
TypeError: Cannot assign int to property Dralo\DbView::$Tag of type string
nothing thrown
nothing thrown
