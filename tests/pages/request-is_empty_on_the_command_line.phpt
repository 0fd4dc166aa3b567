--TEST--
Request: on the command line there is no request, whatever the environment says
--ENV--
QUERY_STRING=Morvu1CurrRecord=3
CONTENT_TYPE=application/x-www-form-urlencoded
--STDIN--
Morvu1CurrRecord=2
--FILE--
<?php
require __DIR__ . '/shop.inc';
$view = shop_view();
html_of($view);
var_dump($view->FromRow, $view->ErrorMessage);
?>
--EXPECT--
int(1)
string(0) ""
