--TEST--
ADODB: a command runs with its parameters, which never become part of the statement
--FILE--
<?php
require __DIR__ . '/shop.inc';

$command = Dralo\CreateObject('ADODB.Command');
$command->ActiveConnection = shop_connection();
$command->CommandText = 'SELECT Name FROM Customers WHERE Name = ? OR ID = ?';
$command->CommandType = 1;
$command->Parameters[] = "x' OR 1=1 --";
$command->Parameters[] = 2;
var_dump(count($command->Parameters), $command->Parameters[0], isset($command->Parameters[1]), isset($command->Parameters[2]), $command->Parameters[7] ?? 'none');
$rows = new Dralo\Recordset();
$rows->Open($command);
for (; !$rows->EOF; $rows->MoveNext()) echo $rows->Fields['Name']->Value, "\n";
$rows->Close();
$command->Parameters[1] = 3;
$rows->Open($command);
echo $rows->Fields[0]->Value, "\n";
foreach ($command->Parameters as $number => $value) echo "$number => $value\n";
echo json_encode($command->Parameters), "\n";
try_it(function () use ($command) { $command->Parameters[3] = 1; });
try_it(function () use ($command) { $command->Parameters[-1] = 1; });
try_it(function () use ($command) { $command->Parameters['name'] = 1; });
try_it(function () use ($command) { unset($command->Parameters[0]); });
try_it(fn() => $command->Parameters[9]);
try_it(fn() => $rows->Open($command, $command->ActiveConnection));
try_it(fn() => $rows->Open('SELECT 1'));
try_it(fn() => $rows->Open('SELECT 1', $command->ActiveConnection, 4));
try_it(fn() => $rows->Open('SELECT 1', $command->ActiveConnection, 0, 5));
foreach ([0, 2, 129, PHP_INT_MAX, (1 << 32) + 1] as $options) {
    try_it(fn() => $rows->Open('SELECT 1', $command->ActiveConnection, 0, 1, $options));
    try_it(fn() => $rows->Open($command, null, 0, 1, $options));
    try_it(fn() => $command->ActiveConnection->Execute('DELETE FROM Customers', $none, $options));
}
foreach ([-1, 1] as $options) {
    $rows->Close();
    $rows->Open($command, null, 0, 1, $options);
    echo $rows->Fields[0]->Value, "\n";
    $rows->Close();
    $rows->Open('SELECT COUNT(*) FROM Customers', $command->ActiveConnection, 0, 1, $options);
    echo $rows->Fields[0]->Value, ' ';
    echo $command->ActiveConnection->Execute('SELECT 7', $none, $options)->Fields[0]->Value, "\n";
}
echo $command->ActiveConnection->Execute('Customers', $none, -1)->Fields['Name']->Value, "\n";
try_it(fn() => $command->ActiveConnection->Execute('Customers', $none, 1));
$rows->Close();
try_it(fn() => $rows->Open('Customers', $command->ActiveConnection, Options: 1));
try_it(fn() => $rows->Open($command->ActiveConnection));
try_it(fn() => (new Dralo\Recordset())->Open(new Dralo\Command()));
?>
--EXPECT--
int(2)
string(12) "x' OR 1=1 --"
bool(true)
bool(false)
string(4) "none"
Bob
Cid & "Co"
0 => x' OR 1=1 --
1 => 3
{"0":"x' OR 1=1 --","1":3}
ValueError: There is no parameter number 3
ValueError: There is no parameter number -1
TypeError: The number of a parameter must be an int
Error: Cannot unset an entry of Dralo\Parameters
ValueError: There is no parameter number 9
ValueError: Dralo\Recordset::Open(): Argument #2 ($ActiveConnection) must be null when the source is a command, which has a connection of its own
ValueError: Dralo\Recordset::Open(): Argument #2 ($ActiveConnection) must be a connection when the source is a statement
ValueError: Dralo\Recordset::Open(): Argument #3 ($CursorType) must be between -1 and 3
ValueError: Dralo\Recordset::Open(): Argument #4 ($LockType) must be between -1 and 4
ValueError: Dralo\Recordset::Open(): Argument #5 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Recordset::Open(): Argument #5 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Connection::Execute(): Argument #3 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Recordset::Open(): Argument #5 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Recordset::Open(): Argument #5 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Connection::Execute(): Argument #3 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Recordset::Open(): Argument #5 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Recordset::Open(): Argument #5 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Connection::Execute(): Argument #3 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Recordset::Open(): Argument #5 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Recordset::Open(): Argument #5 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Connection::Execute(): Argument #3 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Recordset::Open(): Argument #5 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Recordset::Open(): Argument #5 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
ValueError: Dralo\Connection::Execute(): Argument #3 ($Options) must be -1 or 1; a table or a stored procedure is run by a command
Cid & "Co"
3 7
Cid & "Co"
3 7
Ann
Dralo\Exception: near "Customers": syntax error
Dralo\Exception: near "Customers": syntax error
TypeError: Dralo\Recordset::Open(): Argument #1 ($Source) must be of type Dralo\Command|string, Dralo\Connection given
Dralo\Exception: The recordset has no connection
