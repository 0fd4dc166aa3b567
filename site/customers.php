<?php

require "frame/frame.php";
begin_page();

$shown = "Customers.ID, Company, Contact, City, Countries.Name AS Country";

$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = "Provider=SQLite;Data Source=" . open_shop_file();
$view->sql = "SELECT $shown, Since FROM Customers JOIN Countries ON Countries.Code = Country";
$view->FormSQL = "SELECT $shown, Email, CreditLimit, Newsletter, Since, LastVisit, Notes
                  FROM Customers JOIN Countries ON Countries.Code = Country";
$view->EditSQL = "SELECT ID, Company, Contact, City, Country, Email, CreditLimit, Newsletter, Since, LastVisit, Notes
                  FROM Customers";
$view->DeleteSQL = "DELETE FROM Customers";

$view->EditOptions = "ADD UPDATE DELETE";
$view->EditPrimaryKeys = "ID";
$view->EditNewPKStatement = "autoincrement";
$view->EditFieldsReadOnly = "ID";
$view->EditConfirmDeleteString = "Delete this customer?";
$view->OnDelete = function (Dralo\Change $change) use ($view) {
    $orders = new Dralo\Command();
    $orders->ActiveConnection = $view->DrConnection->Connection;
    $orders->CommandText = "SELECT ID FROM Orders WHERE Customer = ?";
    $orders->Parameters[] = $change->Key["ID"];
    $rows = new Dralo\Recordset();
    $rows->Open($orders);
    if (!$rows->EOF) {
        $change->Refuse("", "A customer with orders cannot be deleted.");
    }
};
$view->AddEditLookup("Country", "Countries", "Code", "Name", "Name", false);

$view->OrderByFields = "1";
$view->FormDisplayFieldNames = ",,,,,E-mail,Credit limit,,,Last visit";
$view->RecordsPerPage = 10;
$view->ImageDir = "/gfx/";
$view->Width = "100%";
$view->WriteHtmlTable();
echo $view->ErrorMessage;
?>
<p class="hint">What you save here stays until the demo is started again, for all visitors. A customer with orders cannot be
deleted: add one of your own first. There is room for 500.</p>
<?php
end_page();
