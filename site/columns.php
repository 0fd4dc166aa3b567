<?php

require "frame/frame.php";
begin_page();

$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
$view->sql = "SELECT Products.ID, Categories.Name AS Category, Products.Name AS Product, Unit, Price, InStock, SoldSince,
                     Products.Description
              FROM Products JOIN Categories ON Categories.ID = Products.Category";
$view->OrderByFields = "2";
$view->ImageDir = "/gfx/";
$view->Width = "100%";

// Column numbers count every field of the query, those that are not shown too.
$view->GridFieldsHide = "ID,Unit";
$view->GridDisplayFieldNames = ",,,,Price in €,In stock,Sold since,About the product";
$view->GridCellWidths = ",12%,,,,,,42%";
$view->GridColsNoSort = "Description";
$view->GridCellsNoBr = "Product,SoldSince";
$view->GridFieldsSupressDup = "Category";
$view->GridFormatCellFunction[5] = "FORMATNUMBER,2";
$view->GridDisplayIndex = false;

// The style sheet of the page says how rows with this attribute look.
$view->GridTROddTag = 'data-look="tinted"';
$view->MemoFieldLimit = 90;
$view->RecordsPerPage = 15;
$view->WriteHtmlTable();
echo $view->ErrorMessage;

end_page();
