--TEST--
Indexed properties: set and read by column number, as properties and as methods, in any letter case
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = new Dralo\DbView();
foreach (['GridFreeFormatCellByCol', 'GridFormatCellFunction', 'GridColAttributes', 'GridColHeadAttributes'] as $name) {
    $lower = strtolower($name);
    $view->$name[3] = 'three';
    $view->{$lower}['4'] = 44;
    $view->$name(5, 'five');
    $view->$name[3] .= ' and more';
    var_dump($view->$name(3), $view->$lower(4), $view->$lower[5], $view->$name[99], $view->$name(5, 'six'));
    var_dump(isset($view->$name[3]), isset($view->$name[99]), empty($view->$name[3]), $view->$name[99] ?? 'default');
}
$kept = $view->GridColAttributes;
$view = null;
$kept[1] = 'kept';
var_dump($kept[1], $kept->offsetGet(3), $kept->offsetExists(9), $kept instanceof ArrayAccess);
var_dump($kept);

$view = new Dralo\DbView();
foreach ([
    function () use ($view) { $view->GridColAttributes[] = 'x'; },
    function () use ($view) { $view->GridColAttributes['x'] = 'x'; },
    function () use ($view) { $view->GridColAttributes[1.5] = 'x'; },
    function () use ($view) { $view->GridColAttributes[null] = 'x'; },
    function () use ($view) { $view->GridColAttributes[40000] = 'x'; },
    function () use ($view) { $view->GridColAttributes[1] = []; },
    function () use ($view) { $view->GridColAttributes[1] = new stdClass(); },
    function () use ($view) { unset($view->GridColAttributes[1]); },
    function () use ($view) { $view->CurrentRecord[1] = 'x'; },
    function () use ($view) { foreach ($view->GridColAttributes as $value) echo 'never'; },
    fn() => $view->GridColAttributes[[]],
    fn() => $view->GridColAttributes(),
    fn() => $view->GridColAttributes('x'),
    fn() => $view->GridColAttributes(-40000),
    fn() => $view->GridColAttributes(1, 'a', 'b'),
    fn() => $view->CurrentRecord(1, 'x'),
    fn() => count($view->GridColAttributes),
] as $use) try_it($use);
var_dump($view->CurrentRecord(1), $view->CurrentRecord[1], $view->currentRECORD(-1));
?>
--EXPECT--
string(14) "three and more"
string(2) "44"
string(4) "five"
string(0) ""
string(3) "six"
bool(true)
bool(false)
bool(false)
string(7) "default"
string(14) "three and more"
string(2) "44"
string(4) "five"
string(0) ""
string(3) "six"
bool(true)
bool(false)
bool(false)
string(7) "default"
string(14) "three and more"
string(2) "44"
string(4) "five"
string(0) ""
string(3) "six"
bool(true)
bool(false)
bool(false)
string(7) "default"
string(14) "three and more"
string(2) "44"
string(4) "five"
string(0) ""
string(3) "six"
bool(true)
bool(false)
bool(false)
string(7) "default"
string(4) "kept"
string(14) "three and more"
bool(false)
bool(true)
object(Dralo\IndexedProperty)#2 (0) {
}
TypeError: The index of GridColAttributes must be an int
TypeError: The index of GridColAttributes must be an int
TypeError: The index of GridColAttributes must be an int
TypeError: The index of GridColAttributes must be an int
ValueError: The index of GridColAttributes must be a column or field number, 40000 given
TypeError: GridColAttributes must be a string, array given
Error: Object of class stdClass could not be converted to string
Error: Cannot unset an entry of Dralo\IndexedProperty
Error: CurrentRecord is read-only
nothing thrown
TypeError: The index of GridColAttributes must be an int
ArgumentCountError: Dralo\DbView::GridColAttributes() expects at least 1 argument, 0 given
TypeError: Dralo\DbView::GridColAttributes(): Argument #1 ($Index) must be of type int, string given
ValueError: The index of GridColAttributes must be a column or field number, -40000 given
ArgumentCountError: Dralo\DbView::GridColAttributes() expects at most 2 arguments, 3 given
ArgumentCountError: Dralo\DbView::CurrentRecord() expects exactly 1 argument, 2 given
TypeError: count(): Argument #1 ($value) must be of type Countable|array, Dralo\IndexedProperty given
string(0) ""
string(0) ""
string(0) ""
