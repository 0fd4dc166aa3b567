<?php

require "frame/frame.php";
begin_page();

$view = new Dralo\DbView();
$view->Hardened = true;
$view->ImageDir = "/gfx/";
$view->Width = "100%";
$view->QHtmlTable("Provider=SQLite;Mode=Read;Data Source=" . shop_file(), "Countries");
echo $view->ErrorMessage;

end_page();
