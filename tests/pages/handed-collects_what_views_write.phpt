--TEST--
Handed page: what views write is collected for the script, nothing is printed and no header set
--CGI--
--GET--
Morvu1CurrRecord=3
--FILE--
<?php
require __DIR__ . '/shop.inc';

$page = new Dralo\Page('/customers', 'Morvu1CurrRecord=2&a=b');
$view = shop_view();
$view->OnStartPage($page);
$second = new Dralo\DbView();
$second->Tag = '2';
$second->OnStartPage($page);
$second->ConnectionString = $view->ConnectionString;
$second->sql = 'SELECT City FROM Customers';
var_dump($page->body(), $page->status(), $page->headers(), $page->ended());

ob_start();
$view->WriteHtmlTable();
$first = $page->body();
$second->WriteHtmlTable();
var_dump(ob_get_clean());
$unbound = shop_view();
$printed = html_of($unbound);
preg_match_all('/action="[^"]*"|name="(?:Morvu1CurrRecord|a)" value="[^"]*"/', $first, $found);
print_r($found[0]);
echo $view->FromRow, ' ', $unbound->FromRow, ' ', substr_count($page->body(), '<form'), "\n";
var_dump(str_starts_with($page->body(), $first), str_contains($printed, 'action="/shop.php"'), $page->status(), $page->ended());
var_dump(headers_list());
unset($page);
echo $view->CurrentRecord[2], $second->ErrorMessage, "\n";
?>
--EXPECTF--
string(0) ""
int(200)
array(1) {
  ["Content-Type"]=>
  string(24) "text/html; charset=utf-8"
}
bool(false)
string(0) ""
Array
(
    [0] => action="/customers"
    [1] => name="Morvu1CurrRecord" value="2"
    [2] => name="a" value="b"
)
2 3 2
bool(true)
bool(true)
int(200)
bool(false)
array(2) {
  [0]=>
  string(%d) "X-Powered-By: PHP/%s"
  [1]=>
  string(%d) "Content-type: text/html; charset=UTF-8"
}
Bob
