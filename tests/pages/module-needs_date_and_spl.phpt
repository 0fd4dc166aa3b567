--TEST--
Module: the modules that it needs are declared to the engine
--FILE--
<?php
foreach ((new ReflectionExtension('dralo'))->getDependencies() as $module => $kind) echo "$module $kind\n";
?>
--EXPECT--
date Required
spl Required
