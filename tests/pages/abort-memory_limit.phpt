--TEST--
Abort: a page larger than memory_limit in one output buffer ends with PHP's own error and leaves no lock
--INI--
memory_limit=4M
display_errors=0
--FILE--
<?php
require __DIR__ . '/shop.inc';

register_shutdown_function(function () {
    while (ob_get_level()) ob_end_clean();
    echo preg_replace('/\d+/', 'N', error_get_last()['message'] ?? 'no error'), "\n";
    var_dump(shop_is_free());
});
$view = long_view();
$view->TDTag = str_repeat('title="filler" ', 30);
ob_start();
$view->WriteHtmlTable();
echo 'not reached';
?>
--EXPECT--
Allowed memory size of N bytes exhausted (tried to allocate N bytes)
bool(true)
