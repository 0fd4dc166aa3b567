<?php
// Goods of a shop: the file "connection" beside the page says where they are. X-Worker tells which process served the page.
// With ?count= it tells instead what a statement counts, on the worker's own connection.

header('X-Worker: ' . getmypid());

if (isset($_GET['count'])) {
    usleep(20_000);  // So that several of these do not all go to the same worker.
    $connection = Dralo\CreateObject('ADODB.Connection');
    $connection->Open(file_get_contents(__DIR__ . '/connection'));
    exit((string) $connection->Execute($_GET['count'])->Fields[0]->Value);
}

$view = new Dralo\DbView();
$view->ConnectionString = file_get_contents(__DIR__ . '/connection');
$view->sql = 'SELECT ID, Name, Price, Stock, Active, Born, Seen FROM Goods';
$view->FormSQL = 'SELECT ID, Name, Price, Stock, Active, Born, Seen, Country, Big, Note FROM Goods';
$view->EditSQL = $view->FormSQL;
$view->DeleteSQL = 'DELETE FROM Goods';
$view->OrderByFields = 'ID';
$view->EditOptions = 'ADD UPDATE DELETE';
$view->EditPrimaryKeys = 'ID';
$view->AddEditLookup('Country', 'Countries', 'Code', 'Name', 'Name', true);
$view->GridFreeFormatCellByCol[2] = '<b>#Name#</b>';
$view->GridFormatCellFunction[3] = 'FORMATCURRENCY';
$view->GridFormatCellFunction[4] = 'REGEXPREPLACE,/[0-9]+/g,$& left';
$view->WriteHtmlTable();
echo "\n<p id=\"error\">", $view->ErrorMessage, "</p>\n<!-- complete -->";
