<?php

require "frame/frame.php";
begin_page();

$customers = new Dralo\DbView();
$customers->Hardened = true;
$customers->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
$customers->Tag = "1";
$customers->sql = "SELECT ID, Company, City, Country FROM Customers";
$customers->RecordsPerPage = 6;
$customers->ImageDir = "/gfx/";
$customers->Width = "100%";

$orders = new Dralo\DbView();
$orders->Hardened = true;
$orders->DrConnection = $customers->DrConnection;
$orders->Tag = "2";
$orders->sql = "SELECT ID, OrderedAt, Company, Lines, Total FROM OrderTotals";
$orders->RecordsPerPage = 6;
$orders->ImageDir = "/gfx/";
$orders->Width = "100%";

echo "<h2>Customers</h2>";
$customers->WriteHtmlTable();
echo $customers->ErrorMessage;

echo "<h2>Orders</h2>";
$orders->WriteHtmlTable();
echo $orders->ErrorMessage;

end_page();
