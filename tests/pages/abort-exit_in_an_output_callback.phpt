--TEST--
Abort: exit() in an output callback ends the page; shutdown functions still find a usable database
--FILE--
<?php
require __DIR__ . '/shop.inc';

register_shutdown_function(function () {
    while (ob_get_level()) ob_end_clean();
    var_dump(shop_is_free());
});
$view = long_view();
$rows = $view->DrConnection->Connection->Execute('SELECT * FROM Numbers');
$rows->Close();
ob_start();
ob_start(function (string $text) {
    static $pieces = 0;
    if (++$pieces === 3) exit('ended');
    return '';
}, 4096);
try {
    $view->WriteHtmlTable();
} catch (Throwable) {
    echo 'not caught';
}
echo 'not reached';
?>
--EXPECT--
bool(true)
