--TEST--
Abort: max_execution_time that runs out while a page is written ends the page and leaves no lock
--INI--
max_execution_time=1
hard_timeout=20
display_errors=0
--FILE--
<?php
require __DIR__ . '/shop.inc';

// The limit is one of processor time; a busy machine takes longer.
function processor_seconds(): float {
    $used = getrusage();
    return $used['ru_utime.tv_sec'] + $used['ru_stime.tv_sec'];
}

register_shutdown_function(function () {
    set_time_limit(0);
    // Past the output layer: time may have run out in the middle of its callback.
    fwrite(STDOUT, (error_get_last()['message'] ?? 'no error') . "\n");
    fwrite(STDOUT, var_export([shop_is_free(), processor_seconds() < 15], true) . "\n");
});
$view = long_view();
ob_start(fn() => '', 4096);
while (true) $view->WriteHtmlTable();
?>
--EXPECT--
Maximum execution time of 1 second exceeded
array (
  0 => true,
  1 => true,
)
