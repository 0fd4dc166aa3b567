--TEST--
Module: an unknown locale is reported when something is first made, each time
--INI--
dralo.locale="nowhere at all"
--FILE--
<?php
require __DIR__ . '/shop.inc';

try_it(fn() => new Dralo\DbView());
try_it(fn() => Dralo\CreateObject('Dralo.DbView'));
try_it(fn() => new Dralo\Connection());
echo "the page goes on\n";
?>
--EXPECT--
Dralo\Exception: The locale "nowhere at all" is not known: write a language and a country such as "en-US" or "de-DE", or nothing to take the locale of the environment
Dralo\Exception: The locale "nowhere at all" is not known: write a language and a country such as "en-US" or "de-DE", or nothing to take the locale of the environment
Dralo\Exception: The locale "nowhere at all" is not known: write a language and a country such as "en-US" or "de-DE", or nothing to take the locale of the environment
the page goes on
