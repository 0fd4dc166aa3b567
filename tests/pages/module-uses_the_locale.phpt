--TEST--
Module: dates and numbers are in the form of dralo.locale
--INI--
dralo.locale=de-DE
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view('SELECT Born, Balance FROM Customers WHERE ID = 1');
preg_match_all('/_[12]"[^>]*>([^<]+)</', html_of($view), $found);
echo implode(' ', $found[1]), "\n";
?>
--EXPECT--
02.01.1990 12,5
