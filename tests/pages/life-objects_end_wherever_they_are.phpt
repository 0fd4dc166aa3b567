--TEST--
Life: views and database objects end well in arrays, cycles, statics, closures, and in any order
--FILE--
<?php
require __DIR__ . '/shop.inc';

class Holder
{
    public static array $statics = [];
    public mixed $held = null;
    public ?Holder $other = null;
}
function keep(mixed $object): mixed { static $kept = []; $kept[] = $object; return $object; }

$source = shop();
$connection = new Dralo\Connection();
$connection->Open($source);
for ($round = 0; $round < 20; $round++) {
    $view = new Dralo\DbView();
    $view->ConnectionString = $source;
    $view->sql = 'SELECT * FROM Customers';
    html_of($view);
    $rows = $connection->Execute('SELECT * FROM Customers');
    $rows->Fields['Name']->Value;
    $first = new Holder();
    $second = new Holder();
    [$first->other, $second->other] = [$second, $first];
    $first->held = [$view, $rows->Fields, $view->DrConnection, $view->GridColAttributes, (function () use ($view) { yield $view; })()];
    $second->held = fn() => [$view, $rows, $connection];
    if ($round % 3 == 0) keep($first);
    if ($round % 3 == 1) Holder::$statics[] = [$view, $rows->Fields[0], $view->GridFormatCellFunction];
    if ($round % 5 == 4) gc_collect_cycles();
}
$map = new WeakMap();
$map[$view] = 'weak';
var_dump(count($map));
unset($view, $rows, $first, $second);
gc_collect_cycles();
$GLOBALS['global'] = new Dralo\DbView();
$GLOBALS['global']->DrConnection = new Dralo\DBConnection();
$GLOBALS['global']->DrConnection->Connection = $connection;
echo "done\n";
?>
--EXPECT--
int(1)
done
