--TEST--
Abort: an exception from an output callback in the middle of a page reaches the script and leaves no lock
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = long_view();
foreach ([RuntimeException::class, Error::class] as $class) {
    $pieces = 0;
    ob_start();
    ob_start(function (string $text) use ($class, &$pieces) {
        if (++$pieces === 3) {
            throw new $class("piece $pieces");
        }
        return '';
    }, 4096);
    try {
        $view->WriteHtmlTable();
        echo "not reached\n";
    } catch (Throwable $error) {
        while (ob_get_level()) ob_end_clean();
        echo get_class($error), ': ', $error->getMessage(), "\n";
    }
    var_dump($view->ErrorMessage, shop_is_free());
}
var_dump(strlen(html_of($view)) > 500000, shop_is_free());
?>
--EXPECT--
RuntimeException: piece 3
string(0) ""
bool(true)
Error: piece 3
string(0) ""
bool(true)
bool(true)
bool(true)
