--TEST--
View: objects assigned to it come back as the same PHP objects while these live, else as equivalent ones
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = shop_view();
$own = $view->DrConnection;
var_dump($own === $view->drconnection, $own->Connection === $view->DrConnection->Connection, $own->Connection->State);
$own_id = spl_object_id($own);

$shared = new Dralo\DBConnection();
$connection = $shared->Connection;
$connection->Open('Provider=SQLite;Data Source=' . shop_file());
$shared->DatabaseEngine = 'SQLA';
$view->DrConnection = $shared;
var_dump($view->DrConnection === $shared, $view->DrConnection->Connection === $connection);
$shared = $connection = null;
var_dump($view->DrConnection->DatabaseEngine, $view->DrConnection->Connection->State);

$connection = new Dralo\Connection();
$connection->Open('Provider=SQLite;Data Source=' . shop_file());
$view->DrConnection->Connection = $connection;
var_dump($view->DrConnection->Connection === $connection);

$command = new Dralo\Command();
$command->CommandText = 'SELECT Name FROM Customers WHERE ID > ?';
$command->ActiveConnection = $connection;
$command->Parameters[] = 1;
$view->StoredProcCommand = $command;
var_dump($view->StoredProcCommand === $command, $command->ActiveConnection === $connection, $view->StoredProcCommand->Parameters[0]);
$command->Parameters[0] = 2;
unset($command);
var_dump($view->StoredProcCommand->Parameters[0], $view->StoredProcCommand->CommandText);
echo preg_replace('/\s+/', ' ', strip_tags(html_of($view))), $view->ErrorMessage, "\n";

$view->StoredProcCommand = null;
$view->DrConnection = null;
var_dump($view->StoredProcCommand, $view->DrConnection);

$other = new Dralo\DbView();
$other->ADORecordset = $connection->Execute('SELECT Name FROM Customers WHERE ID = 1');
var_dump($other->CountRecords);
echo preg_replace('/\s+/', ' ', strip_tags(html_of($other))), $other->ErrorMessage, "\n";
?>
--EXPECT--
bool(true)
bool(true)
int(1)
bool(true)
bool(true)
string(4) "SQLA"
int(1)
bool(true)
bool(true)
bool(true)
int(1)
int(2)
string(39) "SELECT Name FROM Customers WHERE ID > ?"
 # Name 1 Cid & "Co" Record 1 of 1&nbsp;&nbsp;Page 1 of 1 &nbsp; 
NULL
NULL
bool(false)
 # Name 1 Ann Record 1&nbsp;&nbsp;Page 1 &nbsp;
