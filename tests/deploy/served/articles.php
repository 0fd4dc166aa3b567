<?php
// The articles of the owner that ?owner= names, with ?read= from the database for reading. X-Worker tells which process served the page.

header('X-Worker: ' . getmypid());

$owner = (int) ($_REQUEST['owner'] ?? 0);
$view = new Dralo\DbView();
try {
    $view->ConnectionString = getenv(isset($_REQUEST['read']) ? 'DRALO_READ_DATABASE' : 'DRALO_DATABASE');
} catch (Dralo\Exception $exception) {
    exit('<p id="error">' . htmlspecialchars($exception->getMessage()) . "</p>\n<!-- complete -->\n");
}
$view->sql = "SELECT ID, Name, Amount FROM Articles WHERE Owner = $owner";
$view->EditSQL = 'SELECT ID, Owner, Name, Amount, Note FROM Articles';
$view->FormSQL = $view->EditSQL;
$view->DeleteSQL = 'DELETE FROM Articles';
$view->EditOptions = 'ADD UPDATE DELETE';
$view->EditPrimaryKeys = 'ID';
$view->EditNewPKStatement = 'autoincrement';
$view->EditFieldsReadOnly = 'ID';
$view->OrderByFields = 'ID';
$view->RecordsPerPage = 8;
$view->PersistPageFormRequest = true;
$view->WriteHtmlTable();
echo "\n<p id=\"error\">", $view->ErrorMessage, "</p>\n<!-- complete -->\n";
