--TEST--
Response: an export drops what the page has buffered, sends its headers and ends the page like exit()
--CGI--
--GET--
Morvu1ToExcel.x=5&Morvu1ToExcel.y=5
--INI--
output_buffering=4096
--FILE--
<?php
require __DIR__ . '/shop.inc';

register_shutdown_function(function () { file_put_contents(shop_file() . '.ran', 'shutdown function'); echo 'dropped'; });
class Witness { public function __destruct() { echo 'dropped too'; } }
$witness = new Witness();
echo "dropped as well";
ob_start(fn($text) => strtoupper($text));
$view = shop_view();
echo "and this";
try {
    $view->WriteHtmlTable();
} catch (Throwable) {
    echo "not caught";
} finally {
    echo "not run";
}
echo "not reached";
?>
--CLEAN--
<?php
$ran = __DIR__ . '/response-sends_an_export.db.ran';
if (file_get_contents($ran) !== 'shutdown function') echo 'the shutdown function did not run';
unlink($ran);
?>
--EXPECTHEADERS--
Content-Type: application/vnd.ms-excel
--EXPECTREGEX--
(?!.*(dropped|and this|not caught|not run|not reached)).+
