<?php

require "frame/frame.php";
begin_page();

$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = "Provider=SQLite;Data Source=" . open_shop_file();
$view->sql = "SELECT Products.ID, Products.Name AS Product, Categories.Name AS Category, InStock, ReorderAt, SoldSince
              FROM Products JOIN Categories ON Categories.ID = Category";
$view->EditSQL = "SELECT ID, Name, Category, InStock, ReorderAt, SoldSince, Discontinued FROM Products";

// NOVIEW: the numbers lead to the form, not to a view of the record. Neither ADD nor DELETE: it can only be changed.
$view->EditOptions = "UPDATE NOVIEW";
$view->EditPrimaryKeys = "ID";
$view->EditFieldsReadOnly = "ID,Name";
$view->AddEditLookup("Category", "Categories", "ID", "Name", "Name", false);

$view->OrderByFields = "2";
$view->GridDisplayFieldNames = ",,,In stock,Reorder at,Sold since";
$view->FormDisplayFieldNames = ",Product,,In stock,Reorder at,Sold since";
$view->RecordsPerPage = 10;
$view->ImageDir = "/gfx/";
$view->Width = "100%";
$view->WriteHtmlTable();
echo $view->ErrorMessage;
?>
<p class="hint">What you save here stays until the demo is started again, for all visitors.</p>
<?php
end_page();
