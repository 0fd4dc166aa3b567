--TEST--
ADODB: values of every kind come and go as PHP values
--FILE--
<?php
require __DIR__ . '/shop.inc';

$connection = shop_connection();
$connection->Execute('CREATE TABLE Kinds (ID INTEGER PRIMARY KEY, I BIGINT, R REAL, D DECIMAL(20,4), B BOOLEAN, A DATE, T DATETIME, H TIME, S VARCHAR(50), X BLOB)');
$set = new Dralo\Command();
$set->ActiveConnection = $connection;
$set->CommandText = 'INSERT INTO Kinds VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)';
$rows = [
    [1, PHP_INT_MAX, 1.5, '12.3400', true, new DateTime('2024-02-29'), new DateTimeImmutable('2024-02-29 13:14:15'), '13:14:15', "æ\0ø", "\0\xff"],
    [2, null, null, null, null, null, null, null, null, null],
    [3, PHP_INT_MIN, -0.25, '-7', false, '1999-12-31', '1999-12-31 00:00:00', '00:00:00', '', ''],
];
foreach ($rows as $row) {
    foreach ($row as $number => $value) $set->Parameters[$number] = $value;
    (new Dralo\Recordset())->Open($set);
}
for ($rows = $connection->Execute('SELECT * FROM Kinds ORDER BY ID'); !$rows->EOF; $rows->MoveNext()) {
    foreach ($rows->Fields as $name => $field) {
        $value = $field->Value;
        echo $name, ' ', get_debug_type($value), ' ', is_string($value) && preg_match('/[^ -}]/', $value) ? bin2hex($value) : json_encode($value), "\n";
    }
}
foreach ([[], new stdClass(), fopen('php://memory', 'r'), new DateTime('0000-12-31'), (new DateTime())->setDate(10000, 1, 1)] as $value) {
    try_it(function () use ($set, $value) { $set->Parameters[0] = $value; });
}
$text = new Dralo\Recordset();
$text->CursorLocation = 3;
$text->Open('SELECT ID, S FROM Kinds WHERE ID = 3', $connection, 1, 3);
foreach (['2024-02-29 00:00:00.5', '2024-02-29', '2024-02-29 13:14:15.000001'] as $time) {
    $text->Fields['S']->Value = new DateTime($time);
    $text->Update();
    echo $connection->Execute('SELECT S FROM Kinds WHERE ID = 3')->Fields[0]->Value, "\n";
}
?>
--EXPECT--
ID int 1
I int 9223372036854775807
R float 1.5
D float 12.34
B bool true
A string "2024-02-29"
T string "2024-02-29 13:14:15"
H string "13:14:15"
S string c3a600c3b8
X string 00ff
ID int 2
I null null
R null null
D null null
B null null
A null null
T null null
H null null
S null null
X null null
ID int 3
I int -9223372036854775808
R float -0.25
D int -7
B bool false
A string "1999-12-31"
T string "1999-12-31"
H string "00:00:00"
S string ""
X string ""
TypeError: A database value must be null, bool, int, float, string or DateTimeInterface, array given
TypeError: A database value must be null, bool, int, float, string or DateTimeInterface, stdClass given
TypeError: A database value must be null, bool, int, float, string or DateTimeInterface, resource given
ValueError: A date must be in the years 1 to 9999
ValueError: A date must be in the years 1 to 9999
2024-02-29 00:00:00.5
2024-02-29
2024-02-29 13:14:15.000001
