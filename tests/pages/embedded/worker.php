<?php
// Answers several requests; the program checks what this prints.

$file = $_ENV['DRALO_SHOP'] ?? getenv('DRALO_SHOP');

function customers(string $file): Dralo\DbView
{
    $view = new Dralo\DbView();
    $view->ConnectionString = "Provider=SQLite;Data Source=$file";
    $view->sql = 'SELECT ID, Company FROM Customers ORDER BY ID';
    $view->RecordsPerPage = 2;
    return $view;
}

function rows(Dralo\DbView $view): string
{
    ob_start();
    $view->WriteHtmlTable();
    $html = ob_get_clean();
    return "$view->FromRow..$view->ToRow " . preg_match_all('/<tr id="drl1row/', $html) . " rows $view->ErrorMessage\n";
}

foreach (['Morvu1CurrRecord=3', 'Morvu1CurrRecord=7', '', 'Morvu1CurrRecord=5'] as $query) {
    next_request($query);
    $view = customers($file);
    echo rows($view);
}

// What is kept from one request to the next belongs to a page that has ended, and holds nothing open.
$records = new Dralo\Recordset();
$connection = new Dralo\Connection();
$connection->Open("Provider=SQLite;Data Source=$file");
$records->Open('SELECT * FROM Customers', $connection);
next_request('Morvu1CurrRecord=9');
foreach ([fn() => $view->WriteHtmlTable(), fn() => $records->EOF] as $use) {
    try {
        $use();
        echo "still there\n";
    } catch (Error $error) {
        echo $error->getMessage(), "\n";
    }
}
$other = new Dralo\Connection();
$other->Open("Provider=SQLite;Busy Timeout=0;Data Source=$file");
$other->Execute('BEGIN EXCLUSIVE');
$other->Execute('ROLLBACK');
echo "free\n", rows(customers($file));
