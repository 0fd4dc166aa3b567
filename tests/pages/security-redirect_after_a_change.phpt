--TEST--
Security: a hardened view that has saved leads to the record, and the page ends
--INI--
output_buffering=4096
--POST--
Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_ID=1&Morvu1_Form_Name=New&Morvu1_Was_Name=rYEhEfPi8-q5Uer-tRvR6bypcWD04SEf
--FILE--
<?php
$connection = new Dralo\Connection();
$connection->Open('Provider=SQLite;Data Source=:memory:');
$connection->Execute('CREATE TABLE T(ID INTEGER PRIMARY KEY, Name VARCHAR(40))');
$connection->Execute("INSERT INTO T VALUES(1, 'Old')");
$_SERVER['SCRIPT_NAME'] = '/notes';
$_SERVER['HTTP_SEC_FETCH_SITE'] = 'same-origin';
$view = new Dralo\DbView();
$view->Hardened = true;
$shared = new Dralo\DBConnection();
$shared->Connection = $connection;
$view->DrConnection = $shared;
$view->sql = 'SELECT ID, Name FROM T';
$view->EditOptions = 'UPDATE';
$view->EditPrimaryKeys = 'ID';
echo "what stands before is dropped";
$view->ReceivePost();
echo "never reached";
?>
--EXPECTHEADERS--
Status: 303 See Other
Location: /notes?Morvu1CurrRecord=1&Morvu1maxrecords=20&Morvu1CountRecords=on&Morvu1FormDisplay=formOneRec&Morvu1PK=1&Morvu1Done=u
--EXPECT--
