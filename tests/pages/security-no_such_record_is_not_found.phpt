--TEST--
Security: a record that a hardened view does not show is not found
--INI--
output_buffering=4096
--GET--
Morvu1FormDisplay=formOneRec&Morvu1PK=2
--FILE--
<?php
$connection = new Dralo\Connection();
$connection->Open('Provider=SQLite;Data Source=:memory:');
$connection->Execute('CREATE TABLE T(ID INTEGER PRIMARY KEY, Name VARCHAR(40))');
$connection->Execute("INSERT INTO T VALUES(1, 'Ours'), (2, 'Theirs')");
$view = new Dralo\DbView();
$view->Hardened = true;
$shared = new Dralo\DBConnection();
$shared->Connection = $connection;
$view->DrConnection = $shared;
$view->sql = 'SELECT ID, Name FROM T WHERE ID = 1';
$view->EditPrimaryKeys = 'ID';
ob_start();
$view->WriteHtmlTable();
ob_end_clean();
echo http_response_code(), ' ', $view->ErrorMessage;
?>
--EXPECTHEADERS--
Status: 404 Not Found
--EXPECT--
404 Message 18: There is no such record.<br>
