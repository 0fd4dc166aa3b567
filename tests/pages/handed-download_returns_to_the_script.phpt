--TEST--
Handed page: a download ends the page and not the script
--FILE--
<?php
require __DIR__ . '/shop.inc';

$page = new Dralo\Page('/customers', '', 'Morvu1ToExcel.x=5&Morvu1ToExcel.y=5');
$first = shop_view();
$first->Tag = '2';
$first->OnStartPage($page);
$first->WriteHtmlTable();
var_dump(strlen($page->body()) > 100);
$view = new Dralo\DbView();
$view->OnStartPage($page);
$view->ConnectionString = $first->ConnectionString;
$view->sql = 'SELECT ID FROM Customers WHERE ID = 2';
$behind = new Dralo\DbView();
$behind->OnStartPage($page);
$behind->ConnectionString = $first->ConnectionString;
$behind->sql = 'SELECT ID FROM Customers';
try {
    $view->WriteHtmlTable();
    echo "reached\n";
} finally {
    echo "run\n";
}
var_dump($page->ended(), $page->status(), $page->headers(), $page->body());
$behind->WriteHtmlTable();
$behind->ReceivePost();
var_dump(str_ends_with($page->body(), "</table>"), $behind->ErrorMessage, $view->ErrorMessage);
try_it(fn() => (new Dralo\DbView())->OnStartPage($page));
?>
--EXPECT--
bool(true)
reached
run
bool(true)
int(200)
array(2) {
  ["Content-Type"]=>
  string(24) "application/vnd.ms-excel"
  ["content-disposition"]=>
  string(41) "attachment; filename=DraloExcelExport.xls"
}
string(154) "<table>
<tr>
<th style="border:thin silver solid"  >ID</th>
</tr>
<tr>
<td style="border:thin silver solid"    align="right" >2</td>
</tr>
</table>"
bool(true)
string(0) ""
string(0) ""
Error: Cannot bind Dralo\DbView to a Dralo\Page that has ended
