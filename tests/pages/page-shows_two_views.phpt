--TEST--
Page: two views with tags of their own share a connection and page independently
--CGI--
--GET--
Morvu2CurrRecord=2&Morvu1maxrecords=1
--FILE--
<?php
require __DIR__ . '/shop.inc';

$shared = new Dralo\DBConnection();
$shared->Connection->Open(shop());
$_SERVER['SCRIPT_NAME'] = '/shop.php';
foreach (['1', '2'] as $tag) {
    $view = new Dralo\DbView();
    $view->Tag = $tag;
    $view->DrConnection = $shared;
    $view->DisplayType = 'grid';
    $view->RecordsPerPage = 2;
    $view->sql = 'SELECT ID, Name FROM Customers ORDER BY ID';
    $html = html_of($view);
    preg_match_all('/id="drl\d[^"]*"|name="Morvu\d[^"]*"/', $html, $found);
    echo implode(' ', $found[0]), "\n", $view->ErrorMessage, $view->FromRow, '-', $view->ToRow, "\n";
}
var_dump($shared->Connection->State);
?>
--EXPECT--
id="drl1row_1" id="drl1cell_1_0" id="drl1cell_1_1" id="drl1cell_1_2" name="Morvu1CurrRecord" name="Morvu1CountRecords" name="Morvu1maxrecords" name="Morvu1FormDisplay" name="Morvu1OrderByFields" name="Morvu1OrderByDesc" name="Morvu2CurrRecord" name="Morvu1NEXT" name="Morvu1LAST" name="Morvu1ToExcel"
1-1
id="drl2row_1" id="drl2cell_1_0" id="drl2cell_1_1" id="drl2cell_1_2" id="drl2row_2" id="drl2cell_2_0" id="drl2cell_2_1" id="drl2cell_2_2" name="Morvu2CurrRecord" name="Morvu2CountRecords" name="Morvu2maxrecords" name="Morvu2FormDisplay" name="Morvu2OrderByFields" name="Morvu2OrderByDesc" name="Morvu1maxrecords" name="Morvu2FIRST" name="Morvu2PREV" name="Morvu2LAST" name="Morvu2ToExcel"
2-3
int(1)
