--TEST--
Handed page: a function of the script takes the pieces as they are written
--FILE--
<?php
require __DIR__ . '/shop.inc';

function long_page(string $query, callable $receiver): Dralo\DbView
{
    $page = new Dralo\Page('/numbers', $query);
    $page->sendTo($receiver);
    $view = long_view();
    $view->OnStartPage($page);
    return $view;
}

$pieces = [];
$view = long_page('Morvu1ToExcel.x=1', function (string $piece, Dralo\Page $page) use (&$pieces, &$seen) {
    if ($pieces === []) $seen = [$page->status(), $page->headers(), $page->ended(), $page];
    $pieces[] = strlen($piece);
});
$view->WriteHtmlTable();
print_r(array_slice($seen, 0, 3));
var_dump(count($pieces) > 5, min(array_slice($pieces, 0, -1)) > 60000, $seen[3]->body(), $seen[3]->ended());

$view = long_page('', function (string $piece, Dralo\Page $page) {
    try_it(fn() => $page->sendTo(null));
    throw new DomainException('the visitor has gone');
});
try_it($view->WriteHtmlTable(...));
var_dump(shop_is_free());

$page = new Dralo\Page('/numbers');
$page->sendTo('strlen');
$page->sendTo(null);
$view = shop_view();
$view->OnStartPage($page);
$view->WriteHtmlTable();
var_dump(strlen($page->body()) > 100);
try_it(fn() => $page->sendTo('strlen'));
try_it(fn() => $page->sendTo('no function'));

// A function that holds its page, and a view that does.
$page = new Dralo\Page('/numbers');
$page->sendTo(function (string $piece) use (&$page) {});
$gone = WeakReference::create($page);
unset($page);
var_dump($gone->get() !== null, gc_collect_cycles() > 0, $gone->get());

$page = new Dralo\Page('/numbers');
$written = '';
$page->sendTo(function (string $piece) use ($page, &$written) { $written .= $piece; });
$gone = WeakReference::create($page);
$view = shop_view();
$view->OnStartPage($page);
unset($page);
gc_collect_cycles();
$view->WriteHtmlTable();
var_dump(str_contains($written, 'action="/numbers"'));
unset($view);
gc_collect_cycles();
var_dump($gone->get());

// A view and its page that hold each other until the end of the request.
$view = long_page('', function () use (&$view) {});
?>
--EXPECT--
Array
(
    [0] => 200
    [1] => Array
        (
            [Content-Type] => application/vnd.ms-excel
            [content-disposition] => attachment; filename=DraloExcelExport.xls
        )

    [2] => 
)
bool(true)
bool(true)
string(0) ""
bool(true)
Error: Dralo objects cannot be used like this while one of them is writing the page
DomainException: the visitor has gone
bool(true)
bool(true)
Error: Cannot change where the pieces of a Dralo\Page go after its views have written some
TypeError: Dralo\Page::sendTo(): Argument #1 ($receiver) must be a valid callback or null, function "no function" not found or invalid function name
bool(true)
bool(true)
NULL
bool(true)
NULL
