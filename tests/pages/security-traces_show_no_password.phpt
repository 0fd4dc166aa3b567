--TEST--
Security: traces of exceptions show no connection string and no password
--INI--
zend.exception_ignore_args=0
--FILE--
<?php
function trace(callable $connect): string
{
    try {
        $connect();
        return 'connected';
    } catch (Dralo\Exception $failure) {
        return print_r($failure->getTrace(), true);
    }
}

$list = 'Provider=SQLite;Data Source=/nowhere/at.all;Mode=Read;Password=hunter2';
foreach (
    [
        fn() => (new Dralo\DbView())->QHtmlTable($GLOBALS['list'], 'Countries'),
        fn() => (new Dralo\Connection())->Open($GLOBALS['list']),
        fn() => (new Dralo\Connection())->Open('Provider=SQLite;Data Source=/nowhere/at.all;Mode=Read', 'me', 'hunter2'),
    ] as $connect
) {
    $trace = trace($connect);
    echo substr_count($trace, 'SensitiveParameterValue'), ' ', substr_count($trace, 'hunter2'), "\n";
}
?>
--EXPECT--
1 0
1 0
2 0
