<?php

require "frame/frame.php";
begin_page();

$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
$view->sql = "SELECT ID, OrderedAt, Company, City, Total FROM OrderTotals ORDER BY Total DESC";
$view->GridDisplayFieldNames = ",Ordered at";
$view->GridFormatCellFunction[5] = "FORMATNUMBER,2";
$view->RecordsPerPage = 15;
$view->ImageDir = "/gfx/";
$view->Width = "100%";

// No button, address or spreadsheet gets beyond the limit. The count is given, else the bar would say "of 3000".
$view->RecordsMaxLimit = 50;
$view->RecordCount = 50;
$view->WriteHtmlTable();
echo $view->ErrorMessage;

end_page();
