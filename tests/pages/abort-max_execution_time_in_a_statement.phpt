--TEST--
Abort: max_execution_time that runs out inside a statement ends the statement and the page
--INI--
max_execution_time=1
hard_timeout=10
display_errors=0
--FILE--
<?php
require __DIR__ . '/shop.inc';

register_shutdown_function(function () {
    set_time_limit(0);
    fwrite(STDOUT, (error_get_last()['message'] ?? 'no error') . "\n");
    fwrite(STDOUT, var_export(shop_is_free(), true) . "\n");
});
$view = long_view();
$view->CountRecords = false;
$view->sql = 'WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n) SELECT i FROM n WHERE i < 0';
ob_start(fn() => '');
$view->WriteHtmlTable();
?>
--EXPECT--
Maximum execution time of 1 second exceeded
true
