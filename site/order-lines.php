<?php

require "frame/frame.php";
begin_page();

$order = (int) (filter_input(INPUT_POST, "Order") ?? filter_input(INPUT_GET, "Order") ?? 2997);
$connection = new Dralo\DBConnection();
$connection->Connection->Open("Provider=SQLite;Data Source=" . open_shop_file());
$orders = $connection->Connection->Execute("SELECT ID FROM Orders ORDER BY ID DESC LIMIT 25");
?>
<form class="fields" method="get">
<label>Order <select name="Order">
<?php for (; !$orders->EOF; $orders->MoveNext()): $id = $orders->Fields["ID"]->Value ?>
<option<?= $order === $id ? " selected" : "" ?>><?= $id ?></option>
<?php endfor ?>
</select></label>
<button>Show</button>
</form>
<?php
$lines = "SELECT OrderID, Line, Products.Name AS Product, Quantity, UnitPrice, Discount,
                 ROUND(Quantity * UnitPrice * (1 - COALESCE(Discount, 0)), 2) AS Total
          FROM OrderLines JOIN Products ON Products.ID = Product";

$view = new Dralo\DbView();
$view->Hardened = true;
$view->DrConnection = $connection;
$view->sql = "$lines WHERE OrderID = ?";
$view->SqlParameters = [$order];
$view->FormSQL = $lines;
$view->EditSQL = "SELECT OrderID, Line, Product, Quantity, UnitPrice, Discount FROM OrderLines";
$view->DeleteSQL = "DELETE FROM OrderLines";

// The key columns lead the query, in the order of the keys. A new line's key comes from the two statements, whose "?" is
// the order, too.
$view->EditOptions = "ALL";
$view->EditPrimaryKeys = "OrderID,Line";
$view->EditNewPKStatement = "SELECT ?,"
    . "SELECT MAX(Line) + 1 FROM (SELECT Line FROM OrderLines WHERE OrderID = ? UNION SELECT 0)";
$view->EditFieldsReadOnly = "OrderID,Line";
$view->EditConfirmDeleteString = "Delete this line?";
$view->AddEditLookup("Product", "Products", "ID", "Name", "Name", false);

$view->GridFieldsHide = "OrderID";
$view->GridDisplayFieldNames = ",,,,Unit price";
$view->FormDisplayFieldNames = "Order,,,,Unit price";
$view->GridFormatCellFunction[5] = "FORMATNUMBER,2";
$view->GridFormatCellFunction[6] = "FORMATPERCENT,0";
$view->GridFormatCellFunction[7] = "FORMATNUMBER,2";
$view->ApplyCellFormattingToForm = true;
$view->ImageDir = "/gfx/";
$view->Width = "100%";
$view->WriteHtmlTable();
echo $view->ErrorMessage;
?>
<p class="hint">What you save here stays until the demo is started again, for all visitors. An order has room for 20 lines.</p>
<?php
end_page();
