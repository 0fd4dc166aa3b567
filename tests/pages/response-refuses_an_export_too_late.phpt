--TEST--
Response: an export on a page that was sent already says so and leaves the page as it is
--CGI--
--GET--
Morvu1ToExcel.x=5
--INI--
output_buffering=0
--FILE--
<?php
require __DIR__ . '/shop.inc';
echo "sent already\n";
flush();
$view = shop_view();
try_it(fn() => $view->WriteHtmlTable());
?>
--EXPECT--
sent already
Dralo\Exception: The page has already begun to be sent; enable output_buffering or render earlier
