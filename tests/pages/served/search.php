<?php
// The goods that have the visitor's text in their name and are below a price; hardened when that is asked for.

$view = new Dralo\DbView();
$view->ConnectionString = file_get_contents(__DIR__ . '/connection');
$view->Hardened = isset($_REQUEST['Hardened']);
$view->sql = 'SELECT ID, Name, Price FROM Goods WHERE Name LIKE ? AND Price < ?';
$view->SqlParameters = ['%' . $_REQUEST['Name'] . '%', (float) $_REQUEST['Below']];
$view->EditPrimaryKeys = 'ID';
$view->OrderByFields = 'ID';
$view->WriteHtmlTable();
echo "\n<p id=\"error\">", $view->ErrorMessage, '</p>';
