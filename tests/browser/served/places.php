<?php

/** Keys of a text and a number; or none at all. */

require "page.inc";

$view = new_view();
$view->sql = "SELECT Town, Number, Name FROM Places";
$view->DeleteSQL = "DELETE FROM Places";
$view->EditPrimaryKeys = isset($_REQUEST["NoKeys"]) ? "" : "Town,Number";
write_page($view);
