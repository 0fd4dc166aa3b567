<?php
// A page over a database of its own, with the installed extension.
$view = new Dralo\DbView();
$view->ConnectionString = 'Provider=SQLite;Data Source=:memory:';
$view->sql = "SELECT 'tea' AS Name, 5 AS Price UNION SELECT 'salt', 1";
$view->OrderByFields = 'Price';
$view->WriteHtmlTable();
echo $view->ErrorMessage, "\nversion ", phpversion('dralo'), "\n";
