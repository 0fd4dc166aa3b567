<?php

require "frame/frame.php";
begin_page();

$view = new Dralo\DbView();
$view->Hardened = true;
$view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
$view->sql = "SELECT Products.ID, Products.Name AS Product, Categories.Name AS Category,
                     InStock, COALESCE(ReorderAt, 0) AS ReorderAt,
                     CASE WHEN Discontinued THEN 'No longer sold'
                          WHEN InStock < Products.ReorderAt THEN 'Order now'
                          ELSE 'On sale' END AS State,
                     '' AS Address
              FROM Products JOIN Categories ON Categories.ID = Products.Category";
$view->OrderByFields = "4";
$view->GridFieldsShow = "Product,InStock,State,Address";
$view->GridDisplayFieldNames = ",,,In stock,,, ";
$view->GridColsNoSort = "State,Address";

// Templates: #Name# is the value of a field, also of one that is not shown.
$view->GridFreeFormatCellByCol[2] = '<a href="#DRALOPOSTBACKURL#"><strong>#Product#</strong></a><br><small>#Category#</small>';
$view->GridFreeFormatCellByCol[4] = '<meter min="0" max="240" value="#InStock#"></meter><br>'
    . "<small>#InStock#, reorder at #ReorderAt#</small>";

// Links of the page's own to the record.
$view->GridDisplayIndex = false;
$view->GridFreeFormatCellByCol[7] = '<a href="#DRALOFORMURL#">Open</a>';
$view->FormFieldsShow = "Product,InStock,State";
$view->FormDisplayFieldNames = $view->GridDisplayFieldNames;

// Attributes: ##Name## is a value in the tags of rows and cells, but not in those of single columns.
$view->GridTRTag = 'data-product="##ID##" data-state="##State##"';
$view->GridColAttributes[6] = "nowrap";
$view->GridColHeadAttributes[6] = 'title="Amber: to be ordered. Grey: no longer sold."';

$view->RecordsPerPage = 10;
$view->ImageDir = "/gfx/";
$view->Width = "100%";
$view->WriteHtmlTable();
echo $view->ErrorMessage;

end_page();
