<?php
// A page with a view of its goods and, beside it, a form that uploads a picture.

$view = new Dralo\DbView();
$view->ConnectionString = 'Provider=SQLite;Data Source=' . __DIR__ . '/goods.db';
$view->sql = 'SELECT ID, Name, Note FROM Goods';
$view->EditPrimaryKeys = 'ID';
$view->EditOptions = 'ADD UPDATE DELETE';
$view->EditConfirmDeleteString = '';
$view->Hardened = true;
$view->ReceivePost();
$picture = $_FILES['picture'] ?? null;
?>
<!doctype html>
<title>Goods</title>
<p id="sapi"><?= PHP_SAPI ?></p>
<?php if ($picture) { ?>
<p id="picture"><?= $picture['name'], ' ', hash_file('sha256', $picture['tmp_name']), ' ', $_POST['caption'] ?></p>
<?php } ?>
<?php $view->WriteHtmlTable(); ?>
<p id="error"><?= $view->ErrorMessage ?></p>
