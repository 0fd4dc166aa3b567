<?php
// Runs the statements on the standard input, one a line, on the database that the file "connection" names.

$connection = Dralo\CreateObject('ADODB.Connection');
$connection->Open(file_get_contents(__DIR__ . '/connection'));
foreach (explode("\n", trim(stream_get_contents(STDIN))) as $statement) {
    $connection->Execute($statement);
}
