--TEST--
Exception: a database failure carries its number and the statement, which is not part of the message
--FILE--
<?php
require __DIR__ . '/shop.inc';

$connection = shop_connection();
foreach (['SELECT * FROM Missing', 'SELEC 1', "INSERT INTO Customers VALUES (1, 'Twice', NULL, NULL, NULL)"] as $statement) {
    try {
        $connection->Execute($statement);
    } catch (RuntimeException $error) {
        var_dump(get_class($error), $error->getMessage(), $error->getCode(), $error->getSqlState(), $error->getSource());
    }
}
class ShopException extends Dralo\Exception {}
$own = new ShopException('own message', 7);
var_dump($own->getMessage(), $own->getCode(), $own->getSqlState(), $own->getSource());

try_it(function () { $view = new Dralo\DbView(); $view->ConnectionString = 'Provider=SQLite;Data Source=' . __DIR__ . '/missing.db'; });
try_it(function () { $view = new Dralo\DbView(); $view->ConnectionString = 'nonsense'; });
try_it(function () { $view = new Dralo\DbView(); $view->ConnectionString = ''; });
try_it(fn() => $connection->Open('Provider=SQLite;Data Source=:memory:'));
try_it(fn() => Dralo\CreateObject('ADODB.Stream'));
try_it(fn() => Dralo\CreateObject(''));
try_it(fn() => Dralo\CreateObject());
foreach (['adodb.connection', 'ADODB.RECORDSET', 'Adodb.Command', 'dralo.dbview', 'DRALO.DBCONNECTION'] as $identifier) {
    echo get_class(Dralo\CreateObject($identifier)), "\n";
}
?>
--EXPECT--
string(15) "Dralo\Exception"
string(22) "no such table: Missing"
int(1)
string(0) ""
string(21) "SELECT * FROM Missing"
string(15) "Dralo\Exception"
string(26) "near "SELEC": syntax error"
int(1)
string(0) ""
string(7) "SELEC 1"
string(15) "Dralo\Exception"
string(38) "UNIQUE constraint failed: Customers.ID"
int(1555)
string(0) ""
string(59) "INSERT INTO Customers VALUES (1, 'Twice', NULL, NULL, NULL)"
string(11) "own message"
int(7)
string(0) ""
string(0) ""
Dralo\Exception: The database file ./missing.db does not exist or cannot be reached; Mode=ReadWriteCreate makes a new one
Dralo\Exception: The connection string has a part without "="; write key=value;key=value
Dralo\Exception: The connection string names no provider; write Provider=SQLite;Data Source=FILE, or Driver=NAME for another database
Dralo\Exception: The connection is open already; close it first
Dralo\Exception: No object is registered as "ADODB.Stream"
Dralo\Exception: No object is registered as ""
ArgumentCountError: Dralo\CreateObject() expects exactly 1 argument, 0 given
Dralo\Connection
Dralo\Recordset
Dralo\Command
Dralo\DbView
Dralo\DBConnection
