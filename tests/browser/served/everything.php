<?php

/** One column of every kind. Values may be markup, so that only the form shows them. */

require "page.inc";

$view = new_view();
$view->sql = "SELECT ID FROM Everything";
$view->EditSQL = "SELECT * FROM Everything";
$view->DeleteSQL = "DELETE FROM Everything";
$view->EditPrimaryKeys = "ID";
$view->EditFieldsReadOnly = $_GET["ReadOnly"] ?? $_POST["ReadOnly"] ?? "ID";
$view->UseCSS = !isset($_REQUEST["Plain"]);
$view->AddEditLookup("Shelf", "Shelves", "Code", "Name", "Name", true);
write_page($view);
