<?php

/** Two views of the same table that are edited apart from each other. */

require "page.inc";

$views = [];
foreach (["1", "2"] as $tag) {
    $view = $views[] = new_view($tag);
    $view->sql = "SELECT ID, Name FROM Items";
    $view->DeleteSQL = "DELETE FROM Items";
    $view->EditPrimaryKeys = "ID";
    $view->EditNewPKStatement = "autoincrement";
    $view->RecordsPerPage = 3;
}
write_page(...$views);
