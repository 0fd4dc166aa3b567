--TEST--
Handed page: misuse is told as the engine tells it
--FILE--
<?php
require __DIR__ . '/shop.inc';

$page = new Dralo\Page('/x', server: ['REQUEST_TIME' => 1, 'HTTP_HOST' => ['a'], 7 => 'x']);
$view = shop_view();
try_it(fn() => new Dralo\Page());
try_it(fn() => new Dralo\Page('/x', '', ['a' => 'b']));
try_it(fn() => new Dralo\Page('/x', server: 'GET'));
try_it(fn() => $page->__construct('/y'));
try_it(fn() => $view->OnStartPage(new stdClass()));
try_it(fn() => $view->OnStartPage(null));
try_it(fn() => Dralo\Page::fromGlobals([]));
try_it(fn() => clone $page);
try_it(fn() => serialize($page));
try_it(function () use ($page) { $page->fresh = 1; });
var_dump($page, (new ReflectionClass($page))->isFinal());

$other = new Dralo\Page('/other');
$view->OnStartPage($page);
$view->OnStartPage($other);
$view->WriteHtmlTable();
var_dump($page->body(), str_contains($other->body(), 'action="/other"'));
try_it(fn() => $view->OnStartPage($page));
$printed = shop_view();
html_of($printed);
try_it(fn() => $printed->OnStartPage($page));

$changed = shop_view('SELECT ID, Name FROM Customers');
$changed->OnStartPage($third = new Dralo\Page('/third', '', 'Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_Name=New'));
$changed->EditOptions = 'UPDATE';
$changed->EditPrimaryKeys = 'ID';
$changed->OnSave = function () use ($changed) { try_it(fn() => $changed->OnStartPage(new Dralo\Page('/fourth'))); };
$changed->WriteHtmlTable();
var_dump(str_contains($third->body(), 'action="/third"'), $changed->ErrorMessage);
?>
--EXPECTF--
ArgumentCountError: Dralo\Page::__construct() expects at least 1 argument, 0 given
TypeError: Dralo\Page::__construct(): Argument #3 ($body) must be of type string, array given
TypeError: Dralo\Page::__construct(): Argument #5 ($server) must be of type array, string given
Error: Cannot construct Dralo\Page twice
TypeError: Dralo\DbView::OnStartPage(): Argument #1 ($Page) must be of type Dralo\Page, stdClass given
TypeError: Dralo\DbView::OnStartPage(): Argument #1 ($Page) must be of type Dralo\Page, null given
TypeError: Dralo\Page::fromGlobals(): Argument #1 ($scriptName) must be of type ?string, array given
Error: Trying to clone an uncloneable object of class Dralo\Page
Exception: Serialization of 'Dralo\Page' is not allowed
Error: Cannot create dynamic property Dralo\Page::$fresh
object(Dralo\Page)#%d (0) {
}
bool(true)
string(0) ""
bool(true)
Error: Cannot bind Dralo\DbView to a page after it has answered on one
Error: Cannot bind Dralo\DbView to a page after it has answered on one
Error: Cannot bind Dralo\DbView to a page after it has answered on one
bool(true)
string(0) ""
