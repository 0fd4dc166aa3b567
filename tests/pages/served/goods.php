<?php
// Goods of a shop: the file "connection" beside the page says where they are, "view" sets more of the view.

header('X-Worker: ' . getmypid());

$view = new Dralo\DbView();
$view->ConnectionString = file_get_contents(__DIR__ . '/connection');
$view->sql = 'SELECT ID, Name, Price, Stock, Active, Born, Seen FROM Goods';
$view->FormSQL = 'SELECT ID, Name, Price, Active, Born, Seen, Country, Big, Note FROM Goods';
$view->EditSQL = $view->FormSQL;
$view->DeleteSQL = 'DELETE FROM Goods';
$view->EditOptions = 'ADD UPDATE DELETE';
$view->EditPrimaryKeys = 'ID';
$view->EditNewPKStatement = 'autoincrement';
$view->EditFieldsReadOnly = 'ID';
$view->AddEditLookup('Country', 'Countries', 'Code', 'Name', 'Name', true);
$view->WriteHtmlTable();
echo "\n<p id=\"error\">", $view->ErrorMessage, '</p>';
