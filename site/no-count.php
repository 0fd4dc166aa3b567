<?php

require "frame/frame.php";
begin_page();

$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
$view->sql = "SELECT OrderID, Line, Products.Name AS Product, Quantity, UnitPrice, Discount
              FROM OrderLines JOIN Products ON Products.ID = OrderLines.Product";
$view->OrderByFields = "1, 2";
$view->GridDisplayFieldNames = "Order,,,,Unit price";
$view->GridFormatCellFunction[5] = "FORMATNUMBER,2";
$view->ImageDir = "/gfx/";
$view->Width = "100%";

$view->CountRecords = false;
$view->WriteHtmlTable();
echo $view->ErrorMessage;

end_page();
