--TEST--
Life: an output callback in the middle of a render can read a view, but not change what is being rendered
--FILE--
<?php
require __DIR__ . '/shop.inc';

$view = long_view();
$rows = null;
$attempts = [
    'reads' => fn() => $view->TDTag . $view->GridColAttributes(1) . $view->DrConnection->DatabaseEngine,
    'creates' => fn() => new Dralo\DbView(),
    'sets' => fn() => $view->TDTag = str_repeat('x', 1000),
    'sets a column' => fn() => $view->GridColAttributes[1] = 'x',
    'renders' => fn() => $view->WriteHtmlTable(),
    'closes' => fn() => $view->DrConnection->Connection->Close(),
    'moves' => function () use (&$rows) { $rows->MoveNext(); },
    'reads a row' => function () use (&$rows) { $rows->Fields[0]->Value; },
    'frees' => function () use (&$view) { $view = null; },
];
$seen = [];
foreach ($attempts as $name => $attempt) {
    $called = false;
    $rows = $view->DrConnection->Connection->Execute('SELECT * FROM Numbers');
    $rendered = $view;
    ob_start(function (string $text) use ($attempt, $name, &$seen, &$called) {
        if (!$called) {
            $called = true;
            try {
                $attempt();
                $seen[] = "$name: done";
            } catch (Error $error) {
                $seen[] = "$name: " . $error->getMessage();
            }
        }
        return '';
    }, 4096);
    $rendered->WriteHtmlTable();
    ob_end_clean();
    $seen[] = $rendered->ErrorMessage;
}
$view = $rendered;
echo implode("\n", array_filter($seen)), "\n";
var_dump(strlen(html_of($view)) > 500000);
?>
--EXPECT--
reads: done
creates: done
sets: Dralo objects cannot be used like this while one of them is writing the page
sets a column: Dralo objects cannot be used like this while one of them is writing the page
renders: Dralo objects cannot be used like this while one of them is writing the page
closes: Dralo objects cannot be used like this while one of them is writing the page
moves: Dralo objects cannot be used like this while one of them is writing the page
reads a row: Dralo objects cannot be used like this while one of them is writing the page
frees: done
bool(true)
