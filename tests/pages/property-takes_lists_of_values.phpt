--TEST--
Property: a list takes the values of an array and binds them to the statement
--FILE--
<?php
require 'shop.inc';
$view = new Dralo\DbView();
$view->ConnectionString = shop();
$view->sql = 'SELECT Name FROM Customers WHERE City = ? OR Born < ? OR Balance = ?';
$city = "x' OR 1=1";
$view->SqlParameters = ['city' => &$city, 7 => new DateTime('1991-01-01'), null];
echo json_encode($view->SqlParameters), "\n";
$view->WriteHtmlTable();
echo "\n", $view->ErrorMessage, $view->RecordCount, "\n";

foreach (['text', [[]], [new stdClass()]] as $wrong) {
    try {
        $view->SqlParameters = $wrong;
    } catch (TypeError $error) {
        echo $error->getMessage(), "\n";
    }
}
try {
    $view->SqlParameters[] = 1;
} catch (Error $error) {
    echo $error->getMessage(), "\n";
}
echo count($view->SqlParameters), "\n";
$view->SqlParameters = [];
ob_start();
$view->WriteHtmlTable();
ob_end_clean();
echo $view->ErrorMessage, "\n";
?>
--EXPECTF--
["x' OR 1=1","1991-01-01",null]
%A>Ann<%A
1
Cannot assign string to property Dralo\DbView::$SqlParameters of type array
A database value must be null, bool, int, float, string or DateTimeInterface, array given
A database value must be null, bool, int, float, string or DateTimeInterface, stdClass given
Cannot indirectly modify property Dralo\DbView::$SqlParameters
3
The statement expects 3 parameter values, but 0 were given in WriteHTMLTable.<br>
