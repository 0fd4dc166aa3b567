--TEST--
Abort: a fatal error in an output callback ends the page as it always does and leaves no lock
--INI--
memory_limit=16M
display_errors=0
--FILE--
<?php
require __DIR__ . '/shop.inc';

register_shutdown_function(function () {
    // After such an end PHP takes no output any more.
    fwrite(STDERR, (error_get_last()['message'] ?? 'no error') . "\n" . (shop_is_free() ? 'free' : 'locked') . "\n");
});
$view = long_view();
ob_start();
ob_start(function (string $text) {
    static $pieces = 0;
    if (++$pieces === 3) trigger_error('fatal enough', E_USER_ERROR);
    return '';
}, 4096);
$view->WriteHtmlTable();
echo 'not reached';
?>
--EXPECT--
fatal enough
free
