--TEST--
Security: what a hardened view could not do stands in PHP's log as one line, and numbered on the page
--INI--
log_errors=1
error_log=
display_errors=0
--FILE--
<?php
require __DIR__ . '/shop.inc';

$log = tempnam(sys_get_temp_dir(), 'dralo');
ini_set('error_log', $log);
$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = 'Provider=SQLite;Data Source=:memory:';
$view->sql = "SELECT 'a\n[today] root logged in' FROM Nobody";
ob_start();
$view->WriteHtmlTable();
ob_end_clean();
echo $view->ErrorMessage, "\n", $view->ErrorDetail;
echo preg_replace('/^\[.*?\] /', '', file_get_contents($log));
unlink($log);
?>
--EXPECT--
Message 2: The request could not be carried out.<br>
Message 2: The request could not be carried out. no such table: Nobody in WriteHTMLTable. sql='SELECT 'a\x0A[today] root logged in' FROM Nobody'
Dralo: Message 2: The request could not be carried out. no such table: Nobody in WriteHTMLTable. sql='SELECT 'a\x0A[today] root logged in' FROM Nobody'
