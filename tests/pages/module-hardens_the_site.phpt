--TEST--
Module: dralo.hardened is the default of the property
--INI--
dralo.hardened=on
--FILE--
<?php
$view = new Dralo\DbView();
var_dump($view->Hardened);
$view->Hardened = false;
var_dump($view->Hardened, (new Dralo\DbView())->Hardened);
?>
--EXPECT--
bool(true)
bool(false)
bool(true)
