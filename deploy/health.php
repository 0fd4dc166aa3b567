<?php

// 200 when this host can serve pages, which means that it reaches its database; else 503.

header('Content-Type: text/plain');
header('Cache-Control: no-store');
try {
    $connection = Dralo\CreateObject('ADODB.Connection');
    $connection->Open(getenv('DRALO_DATABASE'));
    $connection->Execute('SELECT 1');
    echo "well\n";
} catch (Dralo\Exception $exception) {
    error_log($exception->getMessage());
    http_response_code(503);
    echo "no database\n";
}
