<?php

require "frame/frame.php";
begin_page();

// Not hardened, as a view is unless the page or dralo.hardened says so: what the query yields is HTML, whoever wrote it.
$view = new Dralo\DbView();
$view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
$view->sql = "SELECT ID, '<strong>' || Name || '</strong><br><small>' || Unit || '</small>' AS Product,
                     '<meter min=\"0\" max=\"240\" value=\"' || InStock || '\"></meter>' AS Stock, SoldSince
              FROM Products";
$view->GridDisplayFieldNames = ",,,Sold since";
$view->RecordsPerPage = 10;
$view->ImageDir = "/gfx/";
$view->Width = "100%";
$view->WriteHtmlTable();
echo $view->ErrorMessage;

end_page();
