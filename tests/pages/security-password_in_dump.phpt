--TEST--
Security: dumps of a hardened view show no password, those of a plain one do
--FILE--
<?php
require __DIR__ . '/shop.inc';

function dumps(Dralo\DbView $view): string
{
    ob_start();
    var_dump($view, (array) $view, get_object_vars($view), json_encode($view));
    print_r($view);
    var_export($view);
    foreach ($view as $name => $value) {
        echo $name, is_scalar($value) ? $value : '';
    }
    try {
        serialize($view);
    } catch (Exception $refusal) {
        echo $refusal;
    }
    return ob_get_clean();
}

$view = new Dralo\DbView();
$view->ConnectionString = 'Provider=SQLite;Data Source=:memory:;Password=hunter2';
var_dump(substr_count(dumps($view), 'hunter2') > 0);
$view->Hardened = true;
var_dump(substr_count(dumps($view), 'hunter2'), substr_count(dumps($view), '***') > 0);
var_dump($view->ConnectionString);
?>
--EXPECT--
bool(true)
int(0)
bool(true)
string(53) "Provider=SQLite;Data Source=:memory:;Password=hunter2"
