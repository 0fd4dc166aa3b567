--TEST--
Property: read-only, write-only, unknown and removed properties are errors, never notices
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = new Dralo\DbView();
$method = 'trim';
foreach ([
    fn() => $view->ErrorMessage = 'x',
    fn() => $view->errorMESSAGE = 'x',
    fn() => $view->FromRow = 1,
    fn() => $view->CurrentMode = 'grid',
    fn() => $view->GridColAttributes = 'x',
    fn() => $view->ErrorMessage .= 'x',
    fn() => $view->FromRow++,
    fn() => $view->ADORecordset,
    fn() => $view->Unknown,
    fn() => $view->Unknown = 1,
    fn() => $view->{''} = 1,
    fn() => $view->{"sql\0"} = 1,
    function () use ($view) { unset($view->sql); },
    function () use ($view) { unset($view->Unknown); },
    function () use ($view) { $view->sql[0] = 'x'; },
    function () use ($view) { $view->sql[] = 'x'; },
    function () use ($view) { $reference = &$view->sql; },
    function () use ($view) { preg_match('/a/', 'a', $view->sql); },
    function () use ($view) { foreach ($view as &$value); },
    function () use ($view) { $view[0] = 1; },
    fn() => $view[0],
    fn() => count($view),
    fn() => $view->Unknown(),
    fn() => (string)$view,
] as $use) try_it($use);
var_dump(isset($view->Unknown), $view->Unknown ?? 'default', isset($view->ADORecordset), empty($view->Unknown), property_exists($view, 'Unknown'));
var_dump($view->sql, $view->ErrorMessage);
?>
--EXPECT--
Error: Cannot modify read-only property Dralo\DbView::$ErrorMessage
Error: Cannot modify read-only property Dralo\DbView::$ErrorMessage
Error: Cannot modify read-only property Dralo\DbView::$FromRow
Error: Cannot modify read-only property Dralo\DbView::$CurrentMode
Error: Cannot modify read-only property Dralo\DbView::$GridColAttributes
Error: Cannot modify read-only property Dralo\DbView::$ErrorMessage
Error: Cannot modify read-only property Dralo\DbView::$FromRow
Error: Cannot read write-only property Dralo\DbView::$ADORecordset
Error: Undefined property: Dralo\DbView::$Unknown
Error: Cannot create dynamic property Dralo\DbView::$Unknown
Error: Cannot create dynamic property Dralo\DbView::$
Error: Cannot create dynamic property Dralo\DbView::$sql
Error: Cannot unset property Dralo\DbView::$sql
Error: Cannot unset property Dralo\DbView::$Unknown
Error: Cannot indirectly modify property Dralo\DbView::$sql
Error: Cannot indirectly modify property Dralo\DbView::$sql
Error: Cannot indirectly modify property Dralo\DbView::$sql
Error: Cannot indirectly modify property Dralo\DbView::$sql
Error: An iterator cannot be used with foreach by reference
Error: Cannot use object of type Dralo\DbView as array
Error: Cannot use object of type Dralo\DbView as array
TypeError: count(): Argument #1 ($value) must be of type Countable|array, Dralo\DbView given
Error: Call to undefined method Dralo\DbView::Unknown()
Error: Object of class Dralo\DbView could not be converted to string
bool(false)
string(7) "default"
bool(false)
bool(true)
bool(false)
string(0) ""
string(0) ""
