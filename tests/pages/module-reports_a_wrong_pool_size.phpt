--TEST--
Module: a limit of the pool that is no number is reported when something is first made, each time
--INI--
dralo.pool_size=many
--FILE--
<?php
require __DIR__ . '/shop.inc';

try_it(fn() => new Dralo\DbView());
try_it(fn() => new Dralo\Connection());
echo "the page goes on\n";
?>
--EXPECT--
Dralo\Exception: The setting dralo.pool_size is "many": write a whole number from 0 to 1000
Dralo\Exception: The setting dralo.pool_size is "many": write a whole number from 0 to 1000
the page goes on
