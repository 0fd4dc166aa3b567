<?php

require "frame/frame.php";
begin_page();

$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
$view->sql = "SELECT Products.ID, Products.Name AS Product, Categories.Name AS Category, Price, InStock, SoldSince
              FROM Products JOIN Categories ON Categories.ID = Products.Category";
$view->OrderByFields = "2";
$view->GridDisplayFieldNames = ",,,,In stock,Sold since";
$view->GridFormatCellFunction[4] = "FORMATNUMBER,2";
$view->ImageDir = "/gfx/";
$view->Width = "100%";

$view->DisplayNavBar = "both";
$view->DisplayRecordsPerPageSelect = true;
$view->RecordsPerPageSelectPlacement = "top";
$view->RecordsPerPageOptions = "5,10,20,50";
$view->RecordsPerPage = 10;
$view->WriteHtmlTable();
echo $view->ErrorMessage;

end_page();
