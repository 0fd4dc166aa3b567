<?php
// A page that ends in the way ?end= names. X-Worker tells which process served it.

header('X-Worker: ' . getmypid());

function numbers(int $rows): Dralo\DbView
{
    $view = new Dralo\DbView();
    $view->ConnectionString = 'Provider=SQLite;Data Source=' . __DIR__ . '/numbers.db';
    $view->sql = 'SELECT N, Text FROM Numbers ORDER BY N';
    $view->RecordsPerPage = $rows;
    return $view;
}

/** Runs code at the third piece of the output from here on, and lets nothing through. */
function at_third_piece(callable $code): void
{
    ob_start(function () use ($code) {
        static $pieces = 0;
        if (++$pieces === 3) $code();
        return '';
    }, 4096);
}

class Ring
{
    public ?Ring $ring = null;
    public mixed $held = null;
    public static array $statics = [];
}

/** Keeps an unfinished recordset alive past the end of the page. */
function keep_unfinished_rows(): void
{
    $view = numbers(10);
    $ring = new Ring();
    $ring->ring = $ring;
    $ring->held = [$view, $view->DrConnection->Connection->Execute('SELECT * FROM Numbers')];
    Ring::$statics[] = $view->DrConnection->Connection->Execute('SELECT N FROM Numbers');
    Ring::$statics[0]->MoveNext();
    $ring->held[1]->MoveNext();
}

$ends = [
    'well' => fn() => numbers(10)->WriteHtmlTable(),
    'long' => fn() => numbers(20000)->WriteHtmlTable(),
    'download' => function () {
        $view = numbers(10);
        ob_start();
        echo 'dropped';
        $view->WriteHtmlTable();
        echo 'not reached';
    },
    'kept' => fn() => keep_unfinished_rows(),
    'kept and fatal' => function () {
        keep_unfinished_rows();
        trigger_error('fatal enough', E_USER_ERROR);
    },
    'exit' => function () {
        at_third_piece(fn() => exit());
        numbers(20000)->WriteHtmlTable();
    },
    'exception' => function () {
        at_third_piece(fn() => throw new RuntimeException('from the callback'));
        numbers(20000)->WriteHtmlTable();
    },
    'fatal' => function () {
        at_third_piece(fn() => trigger_error('fatal enough', E_USER_ERROR));
        numbers(20000)->WriteHtmlTable();
    },
    'memory' => function () {
        ini_set('memory_limit', '4M');
        ob_start();
        numbers(20000)->WriteHtmlTable();
    },
    'time' => function () {
        ob_start(fn() => '', 4096);
        set_time_limit(1);
        while (true) numbers(20000)->WriteHtmlTable();
    },
];
$ends[$_GET['end'] ?? 'well']();
