--TEST--
Life: a view renders in a fiber; an output callback in the middle of a page cannot suspend the fiber
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = long_view();
$fiber = new Fiber(function () use ($view) {
    $once = html_of($view);
    Fiber::suspend('between two pages');
    var_dump($once === html_of($view));
    ob_start();
    ob_start(function () {
        Fiber::suspend('never');
        return '';
    }, 4096);
    try {
        $view->WriteHtmlTable();
    } finally {
        while (ob_get_level()) ob_end_clean();
    }
});
echo $fiber->start(), "\n";
try_it(fn() => $fiber->resume());
var_dump(shop_is_free(), strlen(html_of($view)) > 500000);
?>
--EXPECT--
between two pages
bool(true)
FiberError: Cannot switch fibers in current execution context
bool(true)
bool(true)
