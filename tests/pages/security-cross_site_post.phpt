--TEST--
Security: a post of another site changes no record of a hardened view
--POST--
Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_ID=1&Morvu1_Form_Name=New
--FILE--
<?php
$connection = new Dralo\Connection();
$connection->Open('Provider=SQLite;Data Source=:memory:');
$connection->Execute('CREATE TABLE T(ID INTEGER PRIMARY KEY, Name VARCHAR(40))');
$connection->Execute("INSERT INTO T VALUES(1, 'Old')");

function saved(Dralo\Connection $connection, string $relation): void
{
    $_SERVER['HTTP_SEC_FETCH_SITE'] = $relation;
    $_SERVER['HTTP_HOST'] = 'shop.example';
    $view = new Dralo\DbView();
    $view->Hardened = true;
    $shared = new Dralo\DBConnection();
    $shared->Connection = $connection;
    $view->DrConnection = $shared;
    $view->sql = 'SELECT ID, Name FROM T';
    $view->EditOptions = 'UPDATE';
    $view->EditPrimaryKeys = 'ID';
    $view->ReceivePost();
    echo http_response_code(), ' ', $view->ErrorMessage, ' ', $connection->Execute('SELECT Name FROM T')->Fields[0]->Value, "\n";
}

saved($connection, 'cross-site');
?>
--EXPECTHEADERS--
Status: 403 Forbidden
--EXPECT--
403 Message 12: Nothing was changed: the request came from another site.<br> Old
