--TEST--
Life: a view renders twice, in nested buffers, in a generator, in destructors and in shutdown functions
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view();
$once = html_of($view);
var_dump($once === html_of($view), strlen($once) > 1000);

ob_start();
ob_start(fn($text) => "($text)");
ob_start();
$view->WriteHtmlTable();
ob_end_flush();
ob_end_flush();
var_dump(ob_get_clean() === "($once)");

$pieces = (function () use ($view) { yield html_of($view); })();
var_dump($pieces->current() === $once);

ob_start(function (string $text) use (&$called) { $called .= $text; return ''; }, 100);
$view->WriteHtmlTable();
ob_end_flush();
var_dump($called === $once);

class Renderer
{
    public function __construct(public Dralo\DbView $view, public string $name, public string $once) {}
    public function __destruct() { echo $this->name, ': ', html_of($this->view) === $this->once ? 'the same' : 'different', "\n"; }
}
new Renderer($view, 'at once', $once);
$kept = new Renderer($view, 'in the end', $once);
register_shutdown_function(function () use ($view, $once) {
    echo 'shutdown: ', html_of($view) === $once ? 'the same' : 'different', "\n";
});
register_shutdown_function(function () {
    $fresh = new Dralo\DbView();
    $fresh->ConnectionString = shop();
    $fresh->sql = 'SELECT ID, Name FROM Customers ORDER BY ID';
    echo 'a view of the end: ', strlen(html_of($fresh)) > 1000 ? 'page' : 'nothing', $fresh->ErrorMessage, "\n";
});
?>
--EXPECT--
bool(true)
bool(true)
bool(true)
bool(true)
bool(true)
at once: the same
shutdown: the same
a view of the end: page
in the end: the same
