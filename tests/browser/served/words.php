<?php

/** Keys that are texts. */

require "page.inc";

$view = new_view();
$view->sql = "SELECT Word, Meaning FROM Words";
$view->DeleteSQL = "DELETE FROM Words";
$view->EditPrimaryKeys = "Word";
$view->EditFieldsReadOnly = "Word";
write_page($view);
