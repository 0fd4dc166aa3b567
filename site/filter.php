<?php

require "frame/frame.php";
begin_page();

$chosen = filter_input(INPUT_POST, "Category") ?? filter_input(INPUT_GET, "Category");
$in_stock = filter_input(INPUT_POST, "InStock") ?? filter_input(INPUT_GET, "InStock");
$connection = new Dralo\DBConnection();
$connection->Connection->Open("Provider=SQLite;Mode=Read;Data Source=" . shop_file());
$categories = $connection->Connection->Execute("SELECT ID, Name FROM Categories ORDER BY Name");
?>
<form class="fields" method="get">
<label>Category <select name="Category">
<option value="">All</option>
<?php for (; !$categories->EOF; $categories->MoveNext()): $id = $categories->Fields["ID"]->Value ?>
<option value="<?= $id ?>"<?= $chosen === "$id" ? " selected" : "" ?>><?=
html($categories->Fields["Name"]->Value) ?></option>
<?php endfor ?>
</select></label>
<label><input type="checkbox" name="InStock"<?= $in_stock ? " checked" : "" ?>> In stock only</label>
<button>Show</button>
</form>
<?php
$view = new Dralo\DbView();
$view->Hardened = true;
$view->DrConnection = $connection;
$view->sql = "SELECT ID, Name, Unit, Price, InStock, SoldSince FROM Products
              WHERE InStock >= ? AND (Category = ? OR ? = 0)";
$view->SqlParameters = [$in_stock ? 1 : 0, (int) $chosen, (int) $chosen];
$view->OrderByFields = "2";
$view->GridDisplayFieldNames = ",Product,,,In stock,Sold since";
$view->GridFormatCellFunction[4] = "FORMATNUMBER,2";
$view->RecordsPerPage = 10;
$view->ImageDir = "/gfx/";
$view->Width = "100%";
$view->WriteHtmlTable();
echo $view->ErrorMessage;

end_page();
