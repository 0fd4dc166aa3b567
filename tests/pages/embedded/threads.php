<?php
// One request of a thread, with the thread's own database, views, failures and changes. Prints "ok" and the number of the request,
// or what is wrong.

function check(bool $is_right, string $what): void
{
    if (!$is_right) echo "wrong: $what; ";
}

function view(string $sql): Dralo\DbView
{
    $view = new Dralo\DbView();
    $view->ConnectionString = "Provider=SQLite;Data Source=$_SERVER[DATABASE]";
    $view->sql = $sql;
    return $view;
}

function html(Dralo\DbView $view): string
{
    ob_start();
    $view->WriteHtmlTable();
    return ob_get_clean();
}

$request = (int)$_SERVER['REQUEST'];
$first = $request % 17 + 1;
$thread = trim($_SERVER['SCRIPT_NAME'], '/thread');

// The request of this thread, and its own rows.
$view = view('SELECT ID, Name, Born FROM People ORDER BY ID');
$view->RecordsPerPage = 3;
$html = html($view);
check($view->FromRow === $first && $view->ToRow === min($first + 2, 20), "rows $view->FromRow to $view->ToRow");
check(str_contains($html, "action=\"$_SERVER[SCRIPT_NAME]\""), 'address');
check(substr_count($html, ">of $thread<") === min(3, 21 - $first), 'names');
check(str_contains($html, '>1/2/2001<'), 'dates');

// Failures of this thread.
try {
    $connection = new Dralo\Connection();
    $connection->Open("Provider=SQLite;Data Source=$_SERVER[DATABASE]");
    $connection->Execute("SELECT nothing_of_{$thread}_$request");
    check(false, 'no failure');
} catch (Dralo\Exception $failure) {
    check($failure->getMessage() === "no such column: nothing_of_{$thread}_$request", $failure->getMessage());
    check($failure->getSource() === "SELECT nothing_of_{$thread}_$request", $failure->getSource());
}
try {
    $view->RecordsPerPage = 'many';
    check(false, 'no error');
} catch (TypeError $error) {
    check(str_contains($error->getMessage(), '$RecordsPerPage'), $error->getMessage());
}

// A function of the script in the middle of a change, on a page of its own.
$page = new Dralo\Page('/own', '', "Morvu1FormUpdate=Save&Morvu1PK=1&Morvu1_Form_Note=$request", server: ['REQUEST_METHOD' => 'POST']);
$edit = view('SELECT ID, Note FROM People');
$edit->OnStartPage($page);
$edit->EditOptions = 'UPDATE';
$edit->EditPrimaryKeys = 'ID';
$edit->OnSave = function (Dralo\Change $change) use ($thread) { $change->Set('Note', $change->Values['Note'] . " by $thread"); };
$edit->WriteHtmlTable();
$note = $connection->Execute('SELECT Note FROM People WHERE ID = 1')->Fields['Note']->Value;
check($note === "$request by $thread", "note $note $edit->ErrorMessage");

// A download, in pieces.
$download = new Dralo\Page('/own', 'Morvu1ToExcel.x=1');
$bytes = 0;
$download->sendTo(function (string $piece) use (&$bytes) { $bytes += strlen($piece); });
$long = view('SELECT a.ID, b.Name FROM People a, People b, People c');
$long->OnStartPage($download);
$long->WriteHtmlTable();
check($bytes > 500_000 && $download->ended(), "$bytes bytes");

// Now and then a request ends in the middle.
if ($request % 5 === 4) {
    $records = new Dralo\Recordset();
    $records->Open('SELECT * FROM People', $connection);
    echo "ok $request";
    exit;
}
echo "ok $request";
