--TEST--
Request: a posted form with more fields than max_input_vars is read whole
--CGI--
--INI--
max_input_vars=3
display_startup_errors=0
display_errors=0
--POST_RAW--
Content-Type: application/x-www-form-urlencoded; charset=UTF-8
f1=1&f2=2&f3=3&f4=4&f5=5&Morvu1CurrRecord=3
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view();
preg_match_all('/name="(f\d)"/', html_of($view), $found);
echo implode(' ', $found[1]), ' ', $view->FromRow, ' ', count($_POST) < 6 ? 'while $_POST is cut' : '', "\n";
?>
--EXPECT--
f1 f2 f3 f4 f5 3 while $_POST is cut
