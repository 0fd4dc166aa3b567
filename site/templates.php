<?php

require "frame/frame.php";
begin_page();

$view = new Dralo\DbView();
$view->ConnectionString = "Provider=SQLite;Mode=Read;Data Source=" . shop_file();
// Values are written as they are, in cells, templates and tags: the query makes their signs harmless in HTML.
$view->sql = "SELECT Products.ID, " . escaped("Products.Name") . " AS Product, " . escaped("Categories.Name") . " AS Category,
                     InStock, COALESCE(ReorderAt, 0) AS ReorderAt, MIN(100, InStock * 100 / 240) AS Share,
                     CASE WHEN Discontinued THEN 'No longer sold'
                          WHEN InStock < Products.ReorderAt THEN 'Order now'
                          ELSE 'On sale' END AS State,
                     CASE WHEN Discontinued THEN 'rgb(107 122 144 / 16%)'
                          WHEN InStock < Products.ReorderAt THEN 'rgb(217 119 6 / 16%)'
                          ELSE 'transparent' END AS Colour,
                     '' AS Address
              FROM Products JOIN Categories ON Categories.ID = Products.Category";
$view->OrderByFields = "4";
$view->GridFieldsShow = "Product,InStock,State,Address";
$view->GridDisplayFieldNames = ",,,In stock,,,,, ";
$view->GridColsNoSort = "State,Address";

// Templates: #Name# is the value of a field, also of one that is not shown.
$view->GridFreeFormatCellByCol[2] = '<a href="#DRALOPOSTBACKURL#"><strong>#Product#</strong></a><br><small>#Category#</small>';
$view->GridFreeFormatCellByCol[4] = '<div style="height: .5rem; border-radius: .25rem; background: rgb(107 122 144 / 25%)">'
    . '<div style="height: 100%; width: #Share#%; margin-right: auto; border-radius: inherit; background: var(--dralo-accent)"></div></div>'
    . "<small>#InStock#, reorder at #ReorderAt#</small>";

// Links of the page's own to the record.
$view->GridDisplayIndex = false;
$view->GridFreeFormatCellByCol[9] = '<a href="#DRALOFORMURL#">Open</a>';
$view->FormFieldsShow = "Product,InStock,State";
$view->FormDisplayFieldNames = $view->GridDisplayFieldNames;

// Attributes: ##Name## is a value in the tags of rows and cells, but not in those of single columns.
$view->GridTRTag = 'data-product="##ID##"';
$view->GridTROddTag = 'style="background-color: ##Colour##"';
$view->GridTREvenTag = 'style="background-color: ##Colour##"';
$view->GridColAttributes[4] = 'style="min-width: 10rem"';
$view->GridColAttributes[7] = "nowrap";
$view->GridColHeadAttributes[7] = 'title="Amber: to be ordered. Grey: no longer sold."';

$view->RecordsPerPage = 10;
$view->ImageDir = "/gfx/";
$view->Width = "100%";
$view->WriteHtmlTable();
echo $view->ErrorMessage;

end_page();
