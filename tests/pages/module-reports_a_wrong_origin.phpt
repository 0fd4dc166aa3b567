--TEST--
Module: a trusted origin that no browser would send is reported when something is first made, each time
--INI--
dralo.trusted_origins="https://shop.example, *"
--FILE--
<?php
require __DIR__ . '/shop.inc';

try_it(fn() => new Dralo\DbView());
try_it(fn() => new Dralo\DbView());
echo "the page goes on\n";
?>
--EXPECT--
Dralo\Exception: The trusted origin "*" is none: write it as https://shop.example or https://shop.example:8443
Dralo\Exception: The trusted origin "*" is none: write it as https://shop.example or https://shop.example:8443
the page goes on
