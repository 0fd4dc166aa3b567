--TEST--
Property: dumps, casts, loops and the operators on properties see the values of the moment
--FILE--
<?php
$connection = new Dralo\DBConnection();
$connection->DatabaseEngine = 'access';
var_dump($connection);
print_r($connection);
var_export($connection); echo "\n";
echo json_encode($connection), "\n";
echo json_encode((array)$connection), "\n";
echo json_encode(get_object_vars($connection)), "\n";
$connection->DatabaseEngine = 'mssql';
echo json_encode(get_object_vars($connection)), "\n";
foreach ($connection as $name => $value) echo $name, ' ', is_object($value) ? get_class($value) : $value, "\n";
foreach ($connection as $name => $value) if ($name === 'DatabaseEngine') echo $value, "\n";

$view = new Dralo\DbView();
$view->OrderByFields = 'City';
$view->OrderByFields .= ', Name';
$view->RecordsPerPage++;
++$view->RecordsPerPage;
$view->RecordsPerPage *= 2;
$view->Width ??= 'unused';
$view->DrConnection ??= $connection;
var_dump($view->OrderByFields, $view->RecordsPerPage, $view->Width, $view->DrConnection === $connection);
var_dump($view->RecordsPerPage-- , $view->recordsperpage);
var_dump(isset($view->Width), empty($view->Width), isset($view->StoredProcCommand), empty($view->RecordsPerPage), $view->StoredProcCommand?->CommandText);
$shown = get_object_vars($view);
var_dump(count($shown) > 65, array_key_exists('ADORecordset', $shown), array_key_exists('CurrentRecord', $shown), $shown === get_object_vars($view));
var_dump(array_keys((array)$view) === array_keys($shown), json_decode(json_encode($view), true) == json_decode(json_encode($shown), true));
array_walk($view, function ($value, $name) use ($view, &$walked) { get_object_vars($view); $walked[] = $name; });
var_dump($walked === array_keys($shown));
$recordset = new Dralo\Recordset();
var_dump($recordset);
?>
--EXPECTF--
object(Dralo\DBConnection)#1 (2) {
  ["Connection"]=>
  object(Dralo\Connection)#2 (2) {
    ["ConnectionString"]=>
    string(0) ""
    ["State"]=>
    int(0)
  }
  ["DatabaseEngine"]=>
  string(6) "ACCESS"
}
Dralo\DBConnection Object
(
    [Connection] => Dralo\Connection Object
        (
            [ConnectionString] => 
            [State] => 0
        )

    [DatabaseEngine] => ACCESS
)
\Dralo\DBConnection::__set_state(array(
   'Connection' => 
  \Dralo\Connection::__set_state(array(
     'ConnectionString' => '',
     'State' => 0,
  )),
   'DatabaseEngine' => 'ACCESS',
))
{"Connection":{"ConnectionString":"","State":0},"DatabaseEngine":"ACCESS"}
{"Connection":{"ConnectionString":"","State":0},"DatabaseEngine":"ACCESS"}
{"Connection":{"ConnectionString":"","State":0},"DatabaseEngine":"ACCESS"}
{"Connection":{"ConnectionString":"","State":0},"DatabaseEngine":"MSSQL"}
Connection Dralo\Connection
DatabaseEngine MSSQL
MSSQL
string(10) "City, Name"
int(44)
string(0) ""
bool(true)
int(44)
int(43)
bool(true)
bool(true)
bool(false)
bool(false)
NULL
bool(true)
bool(false)
bool(false)
bool(true)
bool(true)
bool(true)
bool(true)
object(Dralo\Recordset)#%d (4) {
  ["MaxRecords"]=>
  int(0)
  ["CursorLocation"]=>
  int(2)
  ["State"]=>
  int(0)
  ["Fields"]=>
  object(Dralo\Fields)#%d (0) {
  }
}
