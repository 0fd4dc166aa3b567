--TEST--
Response: an export that fails before its first byte leaves the page HTML with the headers it had
--CGI--
--GET--
Morvu1ToExcel.x=5
--INI--
output_buffering=4096
--FILE--
<?php
require __DIR__ . '/shop.inc';
header('Content-Type: text/html; charset=iso-8859-1');
header('X-Own: kept');
echo "dropped";
$view = shop_view();
$view->sql = 'SELECT * FROM Missing';
$view->WriteHtmlTable();
echo $view->ErrorMessage, "\n";
foreach (headers_list() as $header) {
    if (!str_starts_with($header, 'X-Powered-By')) echo $header, "\n";
}
?>
--EXPECTHEADERS--
Content-Type: text/html; charset=iso-8859-1
X-Own: kept
--EXPECT--
no such table: Missing in WriteExcelTable<br>
Content-Type: text/html; charset=iso-8859-1
X-Own: kept
