--TEST--
Change: a posted record is added once, also when its view is written twice and another view has the same Tag
--CGI--
--POST--
Morvu1FormInsert=1&Morvu1FormUpdate=Save&Morvu1_Form_Name=Dan&Morvu1FormDisplay=formOneRec
--FILE--
<?php
require __DIR__ . '/shop.inc';

function editing_view(string $shop): Dralo\DbView
{
    $view = new Dralo\DbView();
    $view->ConnectionString = $shop;
    $view->sql = 'SELECT ID, Name FROM Customers';
    $view->EditOptions = 'ALL';
    $view->EditPrimaryKeys = 'ID';
    $view->EditNewPKStatement = 'autoincrement';
    return $view;
}

$_SERVER['SCRIPT_NAME'] = '/shop.php';
$shop = shop();
$first = editing_view($shop);
$second = editing_view($shop);
$pages = [html_of($first), html_of($first), html_of($second)];
foreach ($pages as $html) echo substr_count($html, '[New record saved ok]'), "\n";
echo $first->ErrorMessage, $second->ErrorMessage;
$names = $first->DrConnection->Connection->Execute('SELECT group_concat(Name) FROM Customers');
echo $names->Fields[0]->Value, "\n";
?>
--EXPECT--
1
1
1
Ann,Bob,Cid & "Co",Dan
