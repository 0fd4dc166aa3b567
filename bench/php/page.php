<?php
// One page of 20 rows on a connection that the worker keeps.
$view = new Dralo\DbView();
$view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . $_SERVER["ORDERS"];
$view->sql = "SELECT * FROM orders";
$view->WriteHtmlTable();
echo $view->ErrorMessage;
