--TEST--
Module: phpinfo() shows version, engine and settings; the locale can only be set by the system
--INI--
dralo.locale=nb-NO
--FILE--
<?php
$module = new ReflectionExtension('dralo');
ob_start();
$module->info();
echo preg_replace(['/\d+\.\d+\.\d+/', '/\d{8}/'], ['N.N.N', 'NNNNNNNN'], ob_get_clean());
var_dump(preg_match('/^\d+\.\d+\.\d+$/', $module->getVersion()), $module->getINIEntries(), ini_set('dralo.locale', 'en-US'));
?>
--EXPECT--
dralo

Dralo => enabled
Version => N.N.N
Compiled for PHP => N.N.N
PHP API => NNNNNNNN

Directive => Local Value => Master Value
dralo.locale => nb-NO => nb-NO
int(1)
array(1) {
  ["dralo.locale"]=>
  string(5) "nb-NO"
}
bool(false)
